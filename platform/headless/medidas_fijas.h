#pragma once

#include "services/destino_informe.h"

namespace headless {

/// The measures of the face that reports are printed in, out of a table: the same on every machine,
/// whatever its fonts. It has the letters of Spanish and its neighbours; any other sign counts as
/// wide as a figure. All faces are this one.
class MedidasFijas final : public services::MedidasDeLetra {
 public:
  [[nodiscard]] double Ancho(const services::Letra& letra, std::string_view texto) const override;
  [[nodiscard]] double Alto(const services::Letra& letra) const override;
};

}  // namespace headless
