#include "guion/anfitrion_guion.h"

#include <utility>

#include "datos/recordset.h"
#include "guion/textos.h"
#include "valores/error.h"

namespace guion {

using services::Ref;

Anfitrion::Anfitrion(Ref<services::Conexion> datos, Ref<services::Conexion> local)
    : datos_(std::move(datos)),
      local_(std::move(local)),
      marco_(services::Crear<FormAnfitrion>()),
      principal_(services::Crear<FormAnfitrion>()) {
  PonerPantalla(AnchoReferencia, AltoReferencia);
}

void Anfitrion::PonerPantalla(int ancho, int alto) {
  marco_->Area = {0, 0, ancho, alto};
  principal_->Area = {0, 0, ancho, alto};
}

services::HRESULT Anfitrion::EntregarSesion(
    Ref<services::Conexion>& CnDatos, Ref<services::IUnknown>&, Ref<services::Conexion>& CnTemp,
    Ref<services::IUnknown>&, Ref<services::IUnknown>&, Ref<services::IUnknown>& FrmMarco,
    Ref<services::IUnknown>& FrmPrincipal, std::int32_t& Ancho, std::int32_t& Alto, double&,
    Ref<services::Recordset>&, Ref<services::Recordset>& RsTextos, Ref<services::Recordset>&,
    std::string& ClaveBorrado, std::string& UsuarioDeSesion) noexcept {
  numero_ = 0;
  descripcion_.clear();
  try {
    CnDatos = datos_;
    CnTemp = local_;
    FrmMarco = marco_;
    FrmPrincipal = principal_;
    Ancho = AnchoReferencia;
    Alto = AltoReferencia;
    ClaveBorrado = Clave;
    UsuarioDeSesion = Usuario;
    AbrirTextos(RsTextos);
    return services::hr::Bien;
  } catch (...) {
    const services::ErrorEjecucion fallo = services::ErrorEnCurso();
    numero_ = fallo.Numero();
    descripcion_ = fallo.Descripcion();
    return services::hr::Fallo;
  }
}

void Anfitrion::AbrirTextos(Ref<services::Recordset>& RsTextos) const {
  // A fresh object each time: the one of an earlier session is open and may be in use.
  RsTextos = services::Crear<services::Recordset>();
  const Ref<ConexionTextos> textos = services::Crear<ConexionTextos>(Pagina, Pantalla);
  RsTextos->Open("SELECT Textos.* FROM Textos", *textos, services::ModoApertura::Lectura);
}

}  // namespace guion
