#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "platform/carpeta_temporal.h"
#include "salvaguarda/conexion_con_guardia.h"
#include "salvaguarda/guardia.h"
#include "store/copia_de_trabajo.h"

// A suite that guards its data, without a window: a component at work on March 2005, and somebody
// else who writes in the same tables.

namespace pruebas {

/// The row of a key, whatever is said of it.
inline auto Dicha(const salvaguarda::Fila& una) {
  return testing::Truly([una](const salvaguarda::Fila& otra) {
    const salvaguarda::PorSuClave antes;
    return !antes(una, otra) && !antes(otra, una);
  });
}

class Oficina {
 public:
  explicit Oficina(apoyo::Tamano tamano = {3, 4}) : negocio_(tamano) {
    componente.Entorno().AlPasarPorAlto = [this](const services::Omision& omision) {
      guardia->PasadoPorAlto(omision);
    };
  }

  void Cargar() {
    Operacion([this] { copia_.Cargar(apoyo::kRangoDeMarzo); });
  }
  void Grabar() {
    Operacion([this] { copia_.Grabar(); });
  }
  /// In one event, as the screen does it.
  void GrabarYCargar() {
    Operacion([this] {
      copia_.Grabar();
      copia_.Cargar(apoyo::kRangoDeMarzo);
    });
  }
  /// What another program does to the stored tables, in the engine's own SQL.
  void Otro(const std::string& sql) { otro_->Ejecutar(sql); }
  /// What the user does to the working copy.
  void Trabajar(const std::string& sql) { temp->Ejecutar(sql); }
  /// A line less, a payment, a new invoice, and an entry of the till that belongs to it.
  void TrabajarEnFacturas() {
    Trabajar(
        "DELETE FROM TempProvFacturas WHERE Factura = 'F000001';"
        "DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001';"
        "UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050301';"
        "INSERT INTO TempProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', "
        "'NUEVA', '2005', '20050301', 9);"
        "UPDATE TempCajaPagos SET Factura = 'NUEVA', Año = '2005' WHERE Factura IS NULL AND "
        "Tipo = 1");
  }

  /// The first column of the stored rows that a query gives.
  std::vector<std::string> Consulta(const std::string& sql) { return Columna(*otro_, sql); }
  /// All that is stored, but for who wrote it when.
  std::vector<std::string> Todo() {
    return Consulta(
        "SELECT NConcepto||'|'||Factura||'|'||Año||'|'||Fecha||'|'||Total||'|'||NRecibos "
        "FROM ProvFacturas "
        "UNION ALL SELECT NConcepto||'|'||NFactura||'|'||Año||'|'||Tipo||'|'||Base "
        "FROM ProvBasesIva "
        "UNION ALL SELECT NConcepto||'|'||NFactura||'|'||Año||'|'||FechaVto||'|'||Importe||'|'||"
        "ifnull(Pagado,'') FROM ProvVencimientos "
        "UNION ALL SELECT NConcepto||'|'||Fecha1Vto||'|'||Importe FROM ProvPrevisionPagos "
        "UNION ALL SELECT idSucursal||'|'||FechaHora||'|'||Tipo||'|'||ifnull(Factura,'')||'|'||"
        "ifnull(Año,'') FROM CajaPagos ORDER BY 1");
  }
  std::vector<salvaguarda::Copia> Guardadas() { return guardia->Copias(); }
  /// What the user is told now, in one text.
  std::string Contado() {
    std::string todo;
    for (const std::string& parrafo : guardia->Contar().Parrafos) todo += parrafo + "\n";
    return todo;
  }
  /// A guard like the one at work.
  std::shared_ptr<salvaguarda::Guardia> OtraGuardia(bool avisarDeOtros = true) {
    return std::make_shared<salvaguarda::Guardia>(
        salvaguarda::Guardia::Bases{almacen, temp, Foto()},
        salvaguarda::Guardia::Lugares{carpeta_.Fichero("copias"), carpeta_.Fichero("registro.txt")},
        "ANA", Trato(avisarDeOtros));
  }
  /// The file of the picture.
  [[nodiscard]] std::string Foto() const { return carpeta_.Fichero("trabajo.foto"); }
  [[nodiscard]] std::string Carpeta() const { return carpeta_.Camino(); }
  [[nodiscard]] const apoyo::NegocioDePrueba& Negocio() const { return negocio_; }

 private:
  static std::vector<std::string> Columna(sqlite::Conexion& base, const std::string& sql) {
    const auto filas = base.Consultar(sql).Filas;
    std::vector<std::string> columna;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) columna.push_back(filas.En(i, 0).Texto());
    return columna;
  }
  salvaguarda::Trato Trato(bool avisarDeOtros) {
    return {[] { return apoyo::kMarzo; },
            [this](const std::string& pregunta) {
              Preguntas.push_back(pregunta);
              MientrasPregunta();
              return Respuesta;
            },
            [this] { ++Avisos; },
            avisarDeOtros,
            [this] {
              AlApartar();
              Apartadas.push_back(EnTrabajo());
              return std::string("aparte.sqlite");
            },
            [this](const std::string& texto) { Dejado.push_back(texto); }};
  }
  std::size_t EnTrabajo() { return Columna(*temp, "SELECT 1 FROM TempProvVencimientos").size(); }
  template <class Accion>
  void Operacion(Accion&& accion) {
    componente.Sesion().Escritorio().Operacion(std::forward<Accion>(accion));
  }

  apoyo::NegocioDePrueba negocio_;
  CarpetaTemporal carpeta_;
  services::Ref<sqlite::Conexion> otro_ = negocio_.AbrirDatos();

 public:
  services::Ref<sqlite::Conexion> datos = negocio_.AbrirDatos();
  std::shared_ptr<salvaguarda::Almacen> almacen =
      std::make_shared<salvaguarda::AlmacenEnFichero>(datos, negocio_.FicheroDatos());
  services::Ref<sqlite::Conexion> temp = negocio_.AbrirTemp();
  std::vector<std::string> Preguntas;
  bool Respuesta = true;
  /// What happens while the user reads the question.
  std::function<void()> MientrasPregunta = [] {};
  int Avisos = 0;
  /// What happens while the working copy is kept aside.
  std::function<void()> AlApartar = [] {};
  /// What was let go of, and how many due dates were in the copy that was kept of it.
  std::vector<std::string> Dejado;
  std::vector<std::size_t> Apartadas;
  std::shared_ptr<salvaguarda::Guardia> guardia = OtraGuardia();
  apoyo::ComponenteEnMarcha componente{
      services::Ref<services::Conexion>(
          services::Crear<salvaguarda::ConexionGuardada>(datos, guardia)),
      services::Ref<services::Conexion>(
          services::Crear<salvaguarda::ConexionDeTrabajo>(temp, guardia)),
      apoyo::kMarzo};

 private:
  store::CopiaDeTrabajo copia_{componente.RecibirSesion()};
};

}  // namespace pruebas
