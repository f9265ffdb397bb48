#pragma once

#include <string>
#include <vector>

namespace guion {

/// What the command line tells.
struct Opciones {
  std::string Datos;     ///< file of the stored tables; empty for a fresh one
  std::string Servidor;  ///< connection text of their server instead
  std::string Esquema;   ///< of the server; empty for one of the run's own
  std::string Local;     ///< file of the working tables; the same
  bool Mantener = false;
  std::string Fichero;  ///< the scenario; `-` for the standard input
};

/// Throws `NoSeEntiende`. A connection is `sqlite:PATH`, a path without `=` and without a prefix,
/// or the text of one through ODBC, which may begin with `odbc:`.
[[nodiscard]] Opciones LeerOpciones(const std::vector<std::string>& argumentos);

}  // namespace guion
