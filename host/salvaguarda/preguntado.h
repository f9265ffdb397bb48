#pragma once

#include <vector>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/cambio.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What stood there when the user was asked about it: what changes while he answers isn't what he
/// agrees to. The picture of the load stays beside it.
class Preguntado {
 public:
  /// Keeps what the tables of the attached file `copia` tell. Throws what the engine throws.
  explicit Preguntado(sqlite::Conexion& base);
  /// What another `copia`, made since, says otherwise. Throws alike.
  [[nodiscard]] std::vector<Cambio> Cambios();

 private:
  sqlite::Conexion& base_;
  sql::Adjunta adjunta_;
};

}  // namespace salvaguarda
