#pragma once

#include <vector>

#include "entry/pantalla_de_caja.h"

namespace shell {

/// In the place of the cash screen, which there isn't yet: no cash entry is ever marked.
class SinCaja final : public entry::PantallaDeCaja {
 public:
  void Rehacer() override {}
  void Descargar() override {}
  void Cargar() override {}
  void MostrarModal() override {}
  [[nodiscard]] std::vector<entry::ApunteDeCaja> Apuntes() override { return {}; }
};

}  // namespace shell
