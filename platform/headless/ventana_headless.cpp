#include "headless/ventana_headless.h"

#include "forms/form.h"
#include "headless/entorno.h"

namespace headless {

void VentanaHeadless::Mostrar(bool) {
  if (std::exchange(mostrada_, true)) return;
  try {
    form_.Form_Resize();
    form_.Form_Paint();
  } catch (const services::ErrorEjecucion& fallo) {
    if (entorno_->AlFallar) entorno_->AlFallar(fallo);
  }
}

void VentanaHeadless::EsperarModal() {
  // This window goes with its screen, perhaps during the wait.
  const std::shared_ptr<Entorno> entorno = entorno_;
  entorno->EsperarModal(form_);
}

}  // namespace headless
