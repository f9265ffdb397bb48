#pragma once

#include <string>
#include <vector>

#include "datos/conexion.h"
#include "odbc/enlace.h"

namespace odbc {

/// A row of texts; what is Null is empty.
using FilaDeTextos = std::vector<std::string>;

/// The rows of a statement that has been run, by its columns of these places, which count from 1
/// and go up.
[[nodiscard]] std::vector<FilaDeTextos> LeerTextos(Enlace& enlace, const ManejoDeOrden& orden,
                                                   const std::vector<SQLUSMALLINT>& lugares);

/// The columns of a statement that was prepared or run, as its driver describes them.
[[nodiscard]] std::vector<services::Columna> Descritas(Enlace& enlace, const ManejoDeOrden& orden);

/// The column that a type of the driver manager's makes, `ancho` wide.
[[nodiscard]] services::Columna ColumnaDe(std::string nombre, int tipo, int ancho);

}  // namespace odbc
