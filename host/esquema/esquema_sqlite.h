#pragma once

#include <string>

#include "esquema/definiciones.h"
#include "sqlite/conexion_sqlite.h"

namespace esquema {

/// Creates the stored tables and their indexes in a file of the embedded engine. All or nothing:
/// it fails where one of them is there already.
void CrearAlmacenadas(sqlite::Conexion& conexion);
/// The same with the columns that they have elsewhere, and but for the record of deletions, which
/// nobody looks up. Throws what asking for those throws.
void CrearAlmacenadasComo(services::Conexion& otras, sqlite::Conexion& conexion);
/// The same for the working tables.
void CrearDeTrabajo(sqlite::Conexion& conexion);

/// The engine's own statement that creates a table.
[[nodiscard]] std::string TextoDeCreacion(const Tabla& tabla);

}  // namespace esquema
