#include "sorvex/utiles_sorvex.h"

#include <utility>

#include "datos/recordset.h"
#include "forms/form.h"
#include "services/destino_informe.h"
#include "sorvex/fechas.h"
#include "sorvex/teclas.h"
#include "valores/error.h"

namespace sorvex {

Utiles::Utiles(std::function<std::string()> usuario, std::function<services::FechaHora()> ahora)
    : usuario_(std::move(usuario)), ahora_(std::move(ahora)) {}

int Utiles::TeclaFecha(services::TextBox& caja, int tecla) {
  return sorvex::TeclaFecha(caja, tecla);
}

int Utiles::TeclaImporte(services::TextBox& caja, int tecla, bool soloEnteros) {
  return sorvex::TeclaImporte(caja, tecla, soloEnteros);
}

void Utiles::SoltarForm(services::Ref<services::Form>& form) {
  form = nullptr;
}

void Utiles::ImprimirAlineado(services::DestinoInforme& destino, double x, const std::string& texto,
                              std::string_view alineacion, bool terminaLinea) {
  destino.CurrentX = alineacion == "D" ? x - destino.TextWidth(texto) : x;
  destino.Print(texto, terminaLinea);
}

std::string Utiles::ConvertirFecha(std::string_view fecha, int /*tipo*/, std::string_view desde,
                                   std::string_view hacia) {
  return sorvex::ConvertirFecha(fecha, desde, hacia);
}

void Utiles::AnotarBorrado(const std::string& clave, services::Ref<services::Conexion>& conexion,
                           const std::string& sentencia) {
  if (!conexion) {
    throw services::ErrorEjecucion(services::error::ObjetoNoEstablecido,
                                   "No hay conexión en la que anotar el borrado");
  }
  const auto rs = services::Crear<services::Recordset>();
  rs->Open("SELECT SorvexBorrados.* FROM SorvexBorrados", *conexion,
           services::ModoApertura::Optimista);
  rs->AddNew();
  rs->Collect("Clave") = clave;
  rs->Collect("Momento") = ahora_();
  rs->Collect("Usuario") = usuario_();
  rs->Collect("Sentencia") = sentencia;
  // One of many, where a commit deletes a range.
  rs->UpdateLuego(
      [](const services::ErrorEjecucion& fallo) { throw services::ErrorEjecucion(fallo); });
  rs->Close();
}

std::string Utiles::FechaActualizado(services::FechaHora momento) {
  return services::TextoIso(momento);
}

std::unique_ptr<services::Utiles> CrearUtiles(services::Sesion& sesion) {
  return std::make_unique<Utiles>([&sesion] { return sesion.Usuario(); },
                                  [&sesion] { return sesion.Ahora(); });
}

}  // namespace sorvex
