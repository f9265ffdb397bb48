#pragma once

#include <string>
#include <vector>

#include "salvaguarda/conceptos.h"
#include "salvaguarda/fila.h"

namespace salvaguarda {

/// A sentence without its full stop, and the rows that it is about, if it is about any.
struct Noticia {
  std::string Frase;
  std::vector<Fila> Filas = {};
};

/// As it is shown: as many of its rows as anyone reads through, and where the others are.
[[nodiscard]] std::string ParaLeer(const Noticia& noticia, const Conceptos& conceptos);
/// As it stands in the log, with as many of its rows as a line holds.
[[nodiscard]] std::string ParaAnotar(const Noticia& noticia, const Conceptos& conceptos);

}  // namespace salvaguarda
