#include "entry/selector.h"

#include "valores/error.h"

namespace entry {

Selector::Selector(services::Form& pantalla, services::Sesion& sesion, std::string_view origen)
    : pantalla_(pantalla), sesion_(sesion), origen_(origen) {}

Selector::~Selector() = default;

void Selector::Buscar(std::string_view clase, const std::string& texto) {
  if (!selector_) selector_ = sesion_.CrearSelectorConceptos();
  services::Ref<services::Form> form(&pantalla_);
  pantalla_.Escritorio().Esperar(
      [&] { selector_->Buscar(sesion_.DatosClase(), form, origen_, clase, texto, "Modal", true); });
  if (form.get() == &pantalla_) return;
  throw services::ErrorEjecucion(
      services::error::InterfazNoDisponible,
      "El selector de conceptos ha devuelto otro formulario por " + pantalla_.Nombre());
}

}  // namespace entry
