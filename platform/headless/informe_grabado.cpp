#include "headless/informe_grabado.h"

#include <utility>

#include "headless/medidas_fijas.h"

namespace headless {
namespace {

const MedidasFijas& Medidas() {
  static const MedidasFijas medidas;
  return medidas;
}

}  // namespace

void Grabacion::Borrar(int pagina) {
  std::erase_if(Trazos, [pagina](const TrazoGrabado& trazo) { return trazo.Pagina == pagina; });
}

ImpresoraGrabada::ImpresoraGrabada(std::shared_ptr<Grabacion> grabacion)
    : DestinoInforme(Medidas()), grabacion_(std::move(grabacion)) {}

HojaGrabada::HojaGrabada(std::shared_ptr<Grabacion> grabacion, int pagina)
    : HojaInforme(Medidas()), grabacion_(std::move(grabacion)), pagina_(pagina) {}

void HojaGrabada::Trazar(services::Trazo trazo) {
  grabacion_->Anotar(pagina_, trazo);
  HojaInforme::Trazar(std::move(trazo));
}

void HojaGrabada::BorrarHoja() {
  grabacion_->Borrar(pagina_);
  HojaInforme::BorrarHoja();
}

}  // namespace headless
