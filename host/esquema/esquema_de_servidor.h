#pragma once

#include "esquema/definiciones.h"
#include "odbc/conexion_odbc.h"

namespace esquema {

/// Creates the stored tables and their indexes in the database that the connection is in: one of
/// PostgreSQL or MariaDB; 0x80040E14 for any other engine. It fails where one of them is there
/// already.
void CrearAlmacenadas(odbc::Conexion& conexion);
/// The same for the working tables, which the component keeps on its own machine: for what is tried
/// on every engine.
void CrearDeTrabajo(odbc::Conexion& conexion);

}  // namespace esquema
