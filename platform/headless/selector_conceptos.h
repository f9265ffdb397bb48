#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "services/utiles.h"

namespace headless {

class Entorno;

/// A concept chooser whose user has already made up his mind: it writes `Entorno::Concepto` in the
/// `TxtBusco` of the calling screen, or nothing when there is none.
class SelectorHeadless final : public services::SelectorConceptos {
 public:
  explicit SelectorHeadless(std::shared_ptr<Entorno> entorno) : entorno_(std::move(entorno)) {}
  void Buscar(services::Ref<services::IDatosClase>& datos, services::Ref<services::Form>& form,
              std::string_view origen, std::string_view clase, const std::string& texto,
              std::string_view modo, bool indicador) override;

 private:
  std::shared_ptr<Entorno> entorno_;
};

}  // namespace headless
