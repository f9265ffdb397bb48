#pragma once

#include <string>
#include <string_view>

namespace services {

/// The criteria of a filter taken apart: a column equals a text. No column: no filter.
struct Filtro {
  std::string Columna;
  std::string Texto;

  [[nodiscard]] bool Vacio() const { return Columna.empty(); }
};

/// Reads `COLUMN = 'text'`, blanks optional, a quote in the text doubled, the name perhaps in
/// square brackets. The empty text, or blanks alone, give no filter. Throws 0x800A0BB9 for
/// anything else.
[[nodiscard]] Filtro LeerFiltro(std::string_view criterio);

}  // namespace services
