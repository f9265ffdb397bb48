#include "guion/mundo.h"

#include <utility>

#include "guion/texto_guion.h"
#include "guion/utiles_vigilados.h"
#include "salvaguarda/guardia.h"
#include "services/sesion.h"
#include "sorvex/utiles_sorvex.h"

namespace guion {
namespace {

constexpr const char* kTituloDelAnfitrion = "Sorvex";
constexpr int kExclamacion = 48;

services::Ref<services::Conexion> Vigilar(services::Ref<services::Conexion> conexion,
                                          const std::shared_ptr<Vigia>& vigia) {
  return services::Crear<ConexionVigilada>(std::move(conexion), vigia);
}

}  // namespace

Mundo::Mundo(Base& datos, Base& local, Fabrica fabrica, guion::Guardar guardar)
    : datos_(datos),
      local_(local),
      fabrica_(std::move(fabrica)),
      guardar_(std::move(guardar)),
      registro_(std::make_shared<guion::Registro>()),
      vigia_datos_(std::make_shared<Vigia>("datos", registro_)),
      vigia_local_(std::make_shared<Vigia>("local", registro_)),
      entorno_(headless::Entorno::Crear()),
      anfitrion_(services::Crear<guion::Anfitrion>(Vigilar(datos.Conexion(), vigia_datos_),
                                                   Vigilar(local.Conexion(), vigia_local_))),
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

void Mundo::Guardar() {
  if (!guardar_) throw NoSeEntiende("estas bases de datos no tienen guardia");
  const Guardada guardada =
      guardar_(anfitrion_->Usuario, {[entorno = entorno_] { return entorno->Ahora(); },
                                     [entorno = entorno_](const std::string& pregunta) {
                                       return entorno->Mensajes.Mostrar(
                                                  pregunta, services::mensaje::SiNo,
                                                  kTituloDelAnfitrion) == services::mensaje::Si;
                                     },
                                     [this] { hay_que_contar_ = true; }});
  guardia_ = guardada.Guardia;
  // The guard keeps the platform, not the other way round as well.
  entorno_->AlPasarPorAlto = [guardia = std::weak_ptr(guardia_)](const services::Omision& omision) {
    if (const auto suya = guardia.lock()) suya->PasadoPorAlto(omision);
  };
  anfitrion_->PonerDatos(Vigilar(guardada.Datos, vigia_datos_));
}

void Mundo::Contar() {
  if (!std::exchange(hay_que_contar_, false)) return;
  for (const std::string& parrafo : guardia_->Contar().Parrafos) {
    entorno_->Mensajes.Mostrar(parrafo, kExclamacion, kTituloDelAnfitrion);
  }
  hay_que_contar_ = false;  // telling it says so once more
}

}  // namespace guion
