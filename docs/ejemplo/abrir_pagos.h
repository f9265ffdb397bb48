#pragma once

#include <filesystem>

#include "automation/servidores.h"
#include "services/anfitrion.h"

using services::IUnknown;
using services::Recordset;
using services::Ref;

/// What the host hands over: the connections to both databases, who works, and the form in whose
/// area the screen is laid.
struct Contexto final : services::ObjetoContado<services::IDatosClase> {
  Ref<services::Conexion> Empresa;
  Ref<services::Conexion> Trabajo;
  Ref<services::IForm> Ventana;

  services::HRESULT EntregarSesion(Ref<services::Conexion>& CnDatos, Ref<IUnknown>&,
                                   Ref<services::Conexion>& CnTemp, Ref<IUnknown>&, Ref<IUnknown>&,
                                   Ref<IUnknown>& FrmMarco, Ref<IUnknown>& FrmPrincipal,
                                   std::int32_t& AnchoReferencia, std::int32_t& AltoReferencia,
                                   double&, Ref<Recordset>&, Ref<Recordset>&, Ref<Recordset>&,
                                   std::string& ClaveBorrado,
                                   std::string& Usuario) noexcept override {
    CnDatos = Empresa;
    CnTemp = Trabajo;
    FrmMarco = Ventana;
    FrmPrincipal = Ventana;
    AnchoReferencia = 28800;  // twips: screens come as designed for 1920 by 1080
    AltoReferencia = 16200;
    ClaveBorrado = "EJEMPLO";
    Usuario = "ANA";
    return services::hr::Bien;
  }
  /// Draws nothing around a form, and hands back the same one.
  services::HRESULT RepintarForm(Ref<IUnknown>&) noexcept override { return services::hr::Bien; }
};

/// Opens "Tesvara de Pagos", which stays open as long as the host runs. Throws `ErrorEjecucion`
/// when it can't; the host may go on.
inline Ref<services::IClassTesvara> AbrirPagos(const std::filesystem::path& biblioteca,
                                               Ref<services::IDatosClase> contexto) {
  automation::RegistrarBiblioteca(biblioteca);  // once for each account is enough
  auto pagos = automation::CrearObjeto<services::IClassTesvara>(services::IClassTesvara::ProgId);
  const services::HRESULT resultado = pagos->Cargar(contexto);
  if (services::hr::Fallido(resultado)) {
    throw services::ErrorEjecucion(resultado,
                                   pagos.Como<services::IDescripcionError>()->Descripcion());
  }
  return pagos;
}
