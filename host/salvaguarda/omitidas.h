#pragma once

#include <string>
#include <vector>

#include "salvaguarda/claves.h"
#include "salvaguarda/fila.h"
#include "services/omision.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What was passed over, as it was heard of.
struct Oida {
  services::Omision Omision;
  /// Of a table that could not be saved, the rows that were to be.
  std::vector<Fila> PorGrabar = {};
};

/// A table of which nothing was loaded or saved.
struct TablaOmitida {
  std::string Tabla;
  std::string Motivo;
  /// The rows that were to be saved and aren't stored.
  std::vector<Fila> Perdidas = {};
};

/// What was passed over, sorted by what the user loses.
struct Omitidas {
  std::vector<TablaOmitida> Tablas;
  /// Those of which what was to go is still stored; not those of which nothing was saved either.
  std::vector<TablaOmitida> SinBorrar;
  /// Rows that are missing.
  std::vector<Fila> Filas;
  /// Rows that could not be saved because others of their keys are stored, which stay.
  std::vector<Fila> Repetidas;
  /// Cash entries that could not be joined to their invoices.
  std::vector<Fila> SinEnlazar;
  /// Cash entries that were not loaded: no commit deletes one.
  std::vector<Fila> Apuntes;
  /// Invoices whose cash entries could not be looked for.
  std::vector<Fila> SinApuntes;
  /// Rows written without one of their values.
  std::vector<Fila> Incompletas;
};

[[nodiscard]] Claves ClavesDe(const std::vector<Oida>& oidas);

/// Those of a load or of a commit. What a commit passed over and `almacenados` holds all the same,
/// such as a row that another year's invoice of the same number brought along, is left out.
[[nodiscard]] Omitidas Clasificar(const std::vector<Oida>& oidas, services::Omision::Tarea durante,
                                  sqlite::Conexion& almacenados);

}  // namespace salvaguarda
