#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"

// How values are kept in a file: amounts and numbers as numbers, Booleans as 0 and 1, a date with
// its time as the text `yyyy-mm-dd hh:nn:ss`.

namespace sqlite {

/// The column that a declaration such as `VARCHAR(20)` tells; an expression, which has none, is a
/// number.
[[nodiscard]] services::Columna ColumnaDeclarada(std::string nombre, std::string_view declarado);

/// The text of the cell at that place, valid until the statement moves on; empty for a Null.
[[nodiscard]] std::string_view TextoDeCelda(sqlite3_stmt* sentencia, int indice);

/// Binds a value; a text isn't copied and must live until the statement has run.
void Enlazar(sqlite3_stmt* sentencia, int indice, const services::Valor& valor);

/// Adds a row of `sentencia` to `filas`: its first columns by the types told, any behind them by
/// what they hold.
void AnadirFila(sqlite3_stmt* sentencia, const std::vector<services::Columna>& columnas,
                services::Filas& filas);

}  // namespace sqlite
