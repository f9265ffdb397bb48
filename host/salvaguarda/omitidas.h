#pragma once

#include <string>
#include <vector>

#include "salvaguarda/fila.h"
#include "services/omision.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What was passed over, sorted by what the user loses.
struct Omitidas {
  /// Tables of which nothing was loaded or saved, each with the reason.
  std::vector<Fila> Tablas;
  /// The rows that are gone with those of a commit.
  std::vector<Fila> Perdidas;
  /// Rows that are missing.
  std::vector<Fila> Filas;
  /// Cash entries that were not loaded: no commit deletes one.
  std::vector<Fila> Apuntes;
  /// Invoices whose cash entries could not be looked for.
  std::vector<Fila> SinApuntes;
  /// Rows written without one of their values.
  std::vector<Fila> Incompletas;
};

/// Those of a load or of a commit. What a commit passed over and `almacenados` holds all the same,
/// such as a row that another year's invoice of the same number brought along, is left out.
[[nodiscard]] Omitidas Clasificar(const std::vector<services::Omision>& omisiones,
                                  services::Omision::Tarea durante, sqlite::Conexion& almacenados);

}  // namespace salvaguarda
