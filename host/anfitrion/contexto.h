#pragma once

#include <QPointer>
#include <string>

#include "anfitrion/custodia.h"
#include "anfitrion/datos.h"
#include "services/anfitrion.h"

namespace anfitrion {

/// What the suite gives to its components.
struct Sesion {
  services::Ref<services::Conexion> CnDatos;
  services::Ref<services::Conexion> CnTemp;
  services::Ref<services::IForm> FrmMarco;
  services::Ref<services::IForm> FrmPrincipal;
  std::int32_t AnchoReferencia = 0;
  std::int32_t AltoReferencia = 0;
  std::string Usuario;
  /// Who keeps the data, for as long as there is a window.
  QPointer<anfitrion::Custodia> Custodia;
};

/// The context object that a component is handed.
class Contexto final
    : public services::ObjetoContado<services::IDatosClase, services::IDescripcionError,
                                     services::IOidoDeOmisiones, services::ICopiaPorRetomar> {
 public:
  explicit Contexto(Sesion sesion) : sesion_(std::move(sesion)) {}

  services::HRESULT EntregarSesion(
      services::Ref<services::Conexion>& CnDatos, services::Ref<services::IUnknown>& ObjSesion2,
      services::Ref<services::Conexion>& CnTemp, services::Ref<services::IUnknown>& ObjSesion4,
      services::Ref<services::IUnknown>& ObjSesion5, services::Ref<services::IUnknown>& FrmMarco,
      services::Ref<services::IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
      std::int32_t& AltoReferencia, double& ValorSesion10,
      services::Ref<services::Recordset>& RsSesion11, services::Ref<services::Recordset>& RsTextos,
      services::Ref<services::Recordset>& RsSesion13, std::string& ClaveBorrado,
      std::string& Usuario) noexcept override;

  /// The suite draws nothing of its own around a form: it hands back the same one.
  services::HRESULT RepintarForm(services::Ref<services::IUnknown>& form) noexcept override;

  void PasadoPorAlto(const services::Omision& omision) noexcept override;
  bool HayCopiaPorRetomar(std::string& desde, std::string& hasta) noexcept override;

  const char* Descripcion() noexcept override { return descripcion_.c_str(); }
  std::int32_t Numero() noexcept override { return numero_; }

 private:
  Sesion sesion_;
  std::string descripcion_;
  std::int32_t numero_ = 0;
};

}  // namespace anfitrion
