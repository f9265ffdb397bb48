#pragma once

#include <optional>
#include <string>
#include <utility>

#include "salvaguarda/comienzo.h"
#include "services/anfitrion.h"

namespace largo {

/// The context of a host that also has a working copy to go on with, when it says of which range.
class ContextoQueRetoma final
    : public services::ObjetoContado<services::IDatosClase, services::ICopiaPorRetomar,
                                     services::IDescripcionError> {
 public:
  explicit ContextoQueRetoma(services::Ref<services::IDatosClase> detras)
      : detras_(std::move(detras)), descripcion_(detras_.Como<services::IDescripcionError>()) {}

  std::optional<salvaguarda::Rango> PorRetomar;

  services::HRESULT EntregarSesion(
      services::Ref<services::Conexion>& CnDatos, services::Ref<services::IUnknown>& ObjSesion2,
      services::Ref<services::Conexion>& CnTemp, services::Ref<services::IUnknown>& ObjSesion4,
      services::Ref<services::IUnknown>& ObjSesion5, services::Ref<services::IUnknown>& FrmMarco,
      services::Ref<services::IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
      std::int32_t& AltoReferencia, double& ValorSesion10,
      services::Ref<services::Recordset>& RsSesion11, services::Ref<services::Recordset>& RsTextos,
      services::Ref<services::Recordset>& RsSesion13, std::string& ClaveBorrado,
      std::string& Usuario) noexcept override {
    return detras_->EntregarSesion(CnDatos, ObjSesion2, CnTemp, ObjSesion4, ObjSesion5, FrmMarco,
                                   FrmPrincipal, AnchoReferencia, AltoReferencia, ValorSesion10,
                                   RsSesion11, RsTextos, RsSesion13, ClaveBorrado, Usuario);
  }
  services::HRESULT RepintarForm(services::Ref<services::IUnknown>& form) noexcept override {
    return detras_->RepintarForm(form);
  }
  bool HayCopiaPorRetomar(std::string& desde, std::string& hasta) noexcept override {
    if (!PorRetomar) return false;
    desde = PorRetomar->Desde;
    hasta = PorRetomar->Hasta;
    return true;
  }
  const char* Descripcion() noexcept override { return descripcion_->Descripcion(); }
  std::int32_t Numero() noexcept override { return descripcion_->Numero(); }

 private:
  services::Ref<services::IDatosClase> detras_;
  services::Ref<services::IDescripcionError> descripcion_;
};

}  // namespace largo
