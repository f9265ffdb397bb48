#include "guion/mundo.h"

#include <utility>

#include "guion/texto_guion.h"
#include "guion/utiles_vigilados.h"
#include "services/sesion.h"
#include "sorvex/utiles_sorvex.h"

namespace guion {
namespace {

services::Ref<services::Conexion> Vigilar(Base& base, const std::shared_ptr<Vigia>& vigia) {
  return services::Crear<ConexionVigilada>(base.Conexion(), vigia);
}

}  // namespace

Mundo::Mundo(Base& datos, Base& local, Fabrica fabrica)
    : datos_(datos),
      local_(local),
      fabrica_(std::move(fabrica)),
      registro_(std::make_shared<guion::Registro>()),
      vigia_datos_(std::make_shared<Vigia>("datos", registro_)),
      vigia_local_(std::make_shared<Vigia>("local", registro_)),
      entorno_(headless::Entorno::Crear()),
      anfitrion_(services::Crear<guion::Anfitrion>(Vigilar(datos, vigia_datos_),
                                                   Vigilar(local, vigia_local_))),
      datos_clase_(anfitrion_) {
  entorno_->CrearUtiles = [registro = registro_](services::Sesion& sesion) {
    return std::make_unique<UtilesVigilados>(sorvex::CrearUtiles(sesion), registro);
  };
}

services::IClassTesvara& Mundo::Componente() {
  if (!componente_) componente_ = fabrica_();
  if (!componente_) throw NoSeEntiende("no se puede crear Tesvara.ClassTesvara");
  return *componente_;
}

}  // namespace guion
