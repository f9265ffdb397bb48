#include "anfitrion/contexto.h"

#include "valores/error.h"

namespace anfitrion {

using services::IUnknown;
using services::Recordset;
using services::Ref;

services::HRESULT Contexto::EntregarSesion(
    Ref<services::Conexion>& CnDatos, Ref<IUnknown>&, Ref<services::Conexion>& CnTemp,
    Ref<IUnknown>&, Ref<IUnknown>&, Ref<IUnknown>& FrmMarco, Ref<IUnknown>& FrmPrincipal,
    std::int32_t& AnchoReferencia, std::int32_t& AltoReferencia, double&, Ref<Recordset>&,
    Ref<Recordset>& RsTextos, Ref<Recordset>&, std::string& ClaveBorrado,
    std::string& Usuario) noexcept {
  numero_ = 0;
  descripcion_.clear();
  try {
    CnDatos = sesion_.CnDatos;
    CnTemp = sesion_.CnTemp;
    FrmMarco = sesion_.FrmMarco;
    FrmPrincipal = sesion_.FrmPrincipal;
    AnchoReferencia = sesion_.AnchoReferencia;
    AltoReferencia = sesion_.AltoReferencia;
    ClaveBorrado = "TESVARA";
    Usuario = sesion_.Usuario;
    if (RsTextos->State()) RsTextos->Close();
    RsTextos->Open(kLosTextos, *sesion_.CnTemp, services::ModoApertura::Lectura);
  } catch (...) {
    const services::ErrorEjecucion fallo = services::ErrorEnCurso();
    numero_ = fallo.Numero();
    descripcion_ = fallo.Descripcion();
    return services::hr::Fallo;
  }
  return services::hr::Bien;
}

// Nothing may come out of here into the load or the commit that goes on.
void Contexto::PasadoPorAlto(const services::Omision& omision) noexcept {
  try {
    if (sesion_.Custodia) sesion_.Custodia->Guardia().PasadoPorAlto(omision);
  } catch (...) {
    return;
  }
}

bool Contexto::HayCopiaPorRetomar(std::string& desde, std::string& hasta) noexcept {
  if (!sesion_.Custodia || !sesion_.Custodia->PorRetomar()) return false;
  const auto& rango = sesion_.Custodia->PorRetomar();
  desde = rango->Desde;
  hasta = rango->Hasta;
  return true;
}

services::HRESULT Contexto::RepintarForm(Ref<IUnknown>&) noexcept {
  return services::hr::Bien;
}

}  // namespace anfitrion
