#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/form.h"
#include "services/sesion.h"
#include "services/utiles.h"

namespace entry {

/// The suite's concept chooser as a screen uses it: made at the first search, and kept.
class Selector {
 public:
  /// `origen` is the screen's name for the chooser.
  Selector(services::Form& pantalla, services::Sesion& sesion, std::string_view origen);
  ~Selector();

  /// Opens it and waits; the answer comes in the screen's `TxtBusco`. `clase` is "Codigo" or
  /// "Nombre". Throws 0x80004002 when another form is handed back in the screen's place.
  void Buscar(std::string_view clase, const std::string& texto);

 private:
  services::Form& pantalla_;
  services::Sesion& sesion_;
  const std::string_view origen_;
  std::unique_ptr<services::SelectorConceptos> selector_;
};

}  // namespace entry
