#include "headless/selector_conceptos.h"

#include <optional>

#include "forms/controles.h"
#include "forms/form.h"
#include "headless/entorno.h"

namespace headless {

void SelectorHeadless::Buscar(services::Ref<services::IDatosClase>&,
                              services::Ref<services::Form>& form, std::string_view,
                              std::string_view, const std::string&, std::string_view, bool) {
  const std::optional<std::string> elegido = std::exchange(entorno_->Concepto, std::nullopt);
  auto* caja = dynamic_cast<services::TextBox*>(form->Buscar("TxtBusco"));
  if (elegido && caja) caja->Text = *elegido;
}

}  // namespace headless
