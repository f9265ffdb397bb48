#pragma once

#include <functional>
#include <string>
#include <utility>

#include "services/anfitrion.h"

namespace guion {

/// A form of the host, of which only place and state are told.
class FormAnfitrion final : public services::ObjetoContado<services::IForm> {
 public:
  services::Rectangulo Area;

  services::Rectangulo Geometria() noexcept override { return Area; }
  std::int32_t WindowState() noexcept override { return estado_; }
  void PonerWindowState(std::int32_t estado) noexcept override { estado_ = estado; }
  void Refresh() noexcept override {}
  void* VentanaNativa() noexcept override { return nullptr; }

 private:
  std::int32_t estado_ = 0;
};

/// The host's context: what the session is filled with at each `Cargar`.
class Anfitrion final
    : public services::ObjetoContado<services::IDatosClase, services::IDescripcionError> {
 public:
  Anfitrion(services::Ref<services::Conexion> datos, services::Ref<services::Conexion> local);

  std::string Usuario = "ANA";
  std::string Clave = "TESVARA";
  std::string Pagina = "Página";
  std::string Pantalla = "Pantalla";
  int AnchoReferencia = 15360;  ///< twips
  int AltoReferencia = 11520;

  /// Twips; the work area is the whole of it.
  void PonerPantalla(int ancho, int alto);
  /// The way to the stored tables that is handed over from now on.
  void PonerDatos(services::Ref<services::Conexion> datos) { datos_ = std::move(datos); }
  /// What is done with a form that is to be repainted, and what is handed back for it.
  std::function<void(services::Ref<services::IUnknown>&)> AlRepintar;
  [[nodiscard]] FormAnfitrion& FrmMarco() { return *marco_; }
  [[nodiscard]] FormAnfitrion& FrmPrincipal() { return *principal_; }

  services::HRESULT EntregarSesion(
      services::Ref<services::Conexion>& CnDatos, services::Ref<services::IUnknown>& ObjSesion2,
      services::Ref<services::Conexion>& CnTemp, services::Ref<services::IUnknown>& ObjSesion4,
      services::Ref<services::IUnknown>& ObjSesion5, services::Ref<services::IUnknown>& FrmMarco,
      services::Ref<services::IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
      std::int32_t& AltoReferencia, double& ValorSesion10,
      services::Ref<services::Recordset>& RsSesion11, services::Ref<services::Recordset>& RsTextos,
      services::Ref<services::Recordset>& RsSesion13, std::string& ClaveBorrado,
      std::string& Usuario) noexcept override;
  /// Draws nothing and, without `AlRepintar`, hands the same form back.
  services::HRESULT RepintarForm(services::Ref<services::IUnknown>& form) noexcept override {
    if (AlRepintar) AlRepintar(form);
    return services::hr::Bien;
  }

  const char* Descripcion() noexcept override { return descripcion_.c_str(); }
  std::int32_t Numero() noexcept override { return numero_; }

 private:
  void AbrirTextos(services::Ref<services::Recordset>& RsTextos) const;

  services::Ref<services::Conexion> datos_;
  services::Ref<services::Conexion> local_;
  services::Ref<FormAnfitrion> marco_;
  services::Ref<FormAnfitrion> principal_;
  std::int32_t numero_ = 0;
  std::string descripcion_;
};

}  // namespace guion
