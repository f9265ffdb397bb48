#pragma once

#include <string>
#include <vector>

#include "valores/error.h"
#include "valores/valor.h"

namespace services {

/// What a load or a commit of the working copy passed over because it goes on after a failure.
struct Omision {
  enum class Tarea { Carga, Grabacion };
  /// What is missing where it was to be written: in the working tables after a load, in the stored
  /// ones after a commit.
  enum class Falta {
    Nada,     ///< nothing that was to be there
    Valor,    ///< a value of a row; when the row is missing too, that is told behind it
    Fila,     ///< a row
    Tabla,    ///< all of a table
    Borrado,  ///< a deletion: rows that were to go are still there
  };
  struct Campo {
    std::string Nombre;
    services::Valor Valor;
  };

  Tarea Durante = Tarea::Carga;
  Falta Que = Falta::Nada;
  /// The table that was written to; empty where there is none.
  std::string Tabla;
  /// The row that was being copied, its key first, by the names of the table that it comes from;
  /// empty where there was none.
  std::vector<Campo> Fila;
  ErrorEjecucion Fallo;
};

}  // namespace services
