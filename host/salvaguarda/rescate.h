#pragma once

#include <optional>
#include <string>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What a working file says of the working copy in it: its range, and whose it is.
struct CopiaAbierta {
  salvaguarda::Rango Rango;
  std::string Usuario;
  std::string Momento;  ///< of its load, `yyyy-mm-dd hh:nn:ss`
};

/// Keeps that in the working file, in the unit under way there.
void AnotarCopia(sqlite::Conexion& deTrabajo, const CopiaAbierta& copia);

/// A working copy that a program left behind when it ended without saving it.
struct Rescate {
  CopiaAbierta Copia;
  /// The rows of it that the stored tables don't have as they are there, each with what was done to
  /// it. They may have been changed there since by others.
  std::vector<Fila> Filas;
};

/// The one in a working file that is open; none when the working tables are empty, or say the same
/// as the stored ones. Throws what the engine throws.
[[nodiscard]] std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo,
                                                   const std::string& almacenados);

/// Empties the working tables: nothing is left to be rescued.
void Descartar(sqlite::Conexion& deTrabajo);

}  // namespace salvaguarda
