#pragma once

#include <string>
#include <vector>

namespace guion {

/// What the command line tells.
struct Opciones {
  std::string Datos;  ///< file of the stored tables; empty for a fresh one
  std::string Local;  ///< file of the working tables; the same
  bool Mantener = false;
  std::string Fichero;  ///< the scenario; `-` for the standard input
};

/// Throws `NoSeEntiende`, also for a connection that is no SQLite file. A connection is
/// `sqlite:PATH`, or a path without `=` and without a prefix like `odbc:`.
[[nodiscard]] Opciones LeerOpciones(const std::vector<std::string>& argumentos);

}  // namespace guion
