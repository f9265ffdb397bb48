#pragma once

#include <optional>
#include <string>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/copias.h"
#include "salvaguarda/fichero_entero.h"

namespace salvaguarda {

/// A copy of rows that is being made, attached to a connection as `copia`. Unless it is finished
/// nothing of it stays.
class CopiaEnCurso {
 public:
  /// Fills it by SQL on `base`: one of those that `salvaguarda/ambito.h` tells. The keys stand in
  /// it too: what is added under them later can be taken away again. Throws what the engine and the
  /// file system throw.
  CopiaEnCurso(Copias& copias, sqlite::Conexion& base, const std::string& filas, Copia copia);

  /// Lets go of the file, gives it its place among the copies, and takes away those that are then
  /// too many. Throws alike.
  Copia Terminar();

 private:
  Copias& copias_;
  Copia copia_;
  FicheroEntero fichero_;
  std::optional<sql::Adjunta> adjunta_;
};

}  // namespace salvaguarda
