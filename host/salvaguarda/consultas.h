#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/tablas.h"
#include "sqlite/conexion_sqlite.h"

// The rows that a commit touches, as SQL.

namespace salvaguarda::sql {

/// The definition of a table of invoice keys.
[[nodiscard]] std::string CrearClaves(std::string_view esquema, std::string_view tabla);
/// The keys of the invoices that a commit of the range deletes, of the stored file `base`; some may
/// come more than once.
[[nodiscard]] std::string ClavesDelRango(sqlite::Conexion& base, const Rango& rango);
/// The keys of the bases and due dates that a load of the range brings, alike. It looks neither at
/// their year nor for the invoice of a base.
[[nodiscard]] std::string ClavesQueVienen(sqlite::Conexion& base, const Rango& rango);
/// That the key of a row stands in a table of them.
[[nodiscard]] std::string EstaEn(std::string_view claves, const Tabla& tabla,
                                 std::string_view alias);
/// The stored rows of the invoices whose keys stand in a table; `columnas` of each, as `t`.
[[nodiscard]] std::string FilasDe(const Tabla& tabla, std::string_view claves,
                                  std::string_view columnas = "t.*");
/// The stored forecasts whose concepts stand in a table, and the stored cash entries; alike.
[[nodiscard]] std::string PrevisionesCon(std::string_view claves,
                                         std::string_view columnas = "t.*");
[[nodiscard]] std::string ApuntesCon(std::string_view claves, std::string_view columnas = "t.*");
/// The keys of a table of cash entries, as they are compared.
[[nodiscard]] std::string ClavesDeApuntes(std::string_view tabla);
/// That a commit of the range deletes a forecast.
[[nodiscard]] std::string BorraPrevision(const Rango& rango, std::string_view alias);
/// The stored forecasts that it deletes.
[[nodiscard]] std::string PrevisionesDe(const Rango& rango);

/// A number of an invoice without the blanks around it.
[[nodiscard]] std::string Numero(const Tabla& tabla, std::string_view alias);
/// What tells a row of a table from the others, in the order of its key: whatever the case, and the
/// blanks around a number.
[[nodiscard]] std::vector<std::string> Clave(const Tabla& tabla, std::string_view alias);
/// That two rows of a table are the same in all of that.
[[nodiscard]] std::string MismaFila(const Tabla& tabla, std::string_view a, std::string_view b);

/// What the columns of a row say, as any load and commit leave them, split by commas: a withholding
/// that is missing or exactly 1 is 0, a cash entry's missing invoice is an empty one, and a moment
/// is the same however it is written.
[[nodiscard]] std::string Valores(const Tabla& tabla, const std::vector<std::string>& columnas,
                                  std::string_view alias);
/// The same, each under its column's name.
[[nodiscard]] std::string ValoresConNombre(const Tabla& tabla,
                                           const std::vector<std::string>& columnas,
                                           std::string_view alias);
/// The columns that a stored table has and that tell what a row says.
[[nodiscard]] std::vector<std::string> Contenido(sqlite::Conexion& base, const Tabla& tabla);

/// The columns of a `Fila` from the row of that name, up to its detail.
[[nodiscard]] std::string ColumnasDeFila(const Tabla& tabla, std::string_view alias);
/// The same with what is the matter with it, an expression.
[[nodiscard]] std::string ColumnasDeFila(const Tabla& tabla, std::string_view alias,
                                         std::string_view motivo);
/// A row of what a query of the latter finds.
[[nodiscard]] Fila LeerFila(const services::Filas& leidas, std::size_t fila);
/// All rows of a table, whose name gets `antes` before it, with nothing the matter.
[[nodiscard]] std::vector<Fila> TodasLasFilas(sqlite::Conexion& base, const Tabla& tabla,
                                              std::string_view antes);
/// All rows of such a query.
[[nodiscard]] std::vector<Fila> LeerFilas(sqlite::Conexion& base, std::string_view consulta);

}  // namespace salvaguarda::sql
