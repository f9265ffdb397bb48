#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/almacen.h"
#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The table of a working file that says what working copy is in it.
inline constexpr std::string_view kCopiaAbierta = "SorvexCopia";

/// What a working file says of the working copy in it.
struct CopiaAbierta {
  salvaguarda::Rango Rango;
  std::string Usuario;
  std::string Momento;      ///< of its load, `yyyy-mm-dd hh:nn:ss`
  std::string Foto;         ///< the sign of the picture taken then; empty for none
  std::string Almacenados;  ///< the name of the stored tables that it belongs to
  bool Completa = true;     ///< false when the load missed a table: it must not be saved
};

/// Keeps that in the working file, in the unit under way there.
void AnotarCopia(sqlite::Conexion& deTrabajo, const CopiaAbierta& copia);
/// The load that was noted misses a table.
void AnotarIncompleta(sqlite::Conexion& deTrabajo);

/// A working copy that a program left behind when it ended without saving it.
struct Rescate {
  CopiaAbierta Copia;
  /// The rows of it that the stored tables don't have as they are there, each with what was done to
  /// it. What others have done since its load isn't among them, where its picture is there to tell.
  std::vector<Fila> Filas;
  /// Whether it is.
  bool ConFoto = false;
  /// Whether it belongs to other stored tables: nothing of it can be held against this one.
  bool DeOtraEmpresa = false;

  [[nodiscard]] bool SePuedeAbrir() const { return Copia.Completa && !DeOtraEmpresa; }
};

/// The one in a working file that is open; none when the working tables are empty, or hold nothing
/// that isn't stored. `foto` is the file of the picture. Throws what the engine throws.
[[nodiscard]] std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo, Almacen& almacen,
                                                   const std::string& foto);

}  // namespace salvaguarda
