#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sqlite/conexion_sqlite.h"

// A copy of rows attached as `copia` to a connection to the stored file, as SQL.

namespace salvaguarda::sql {

/// That the entry `e` belongs to no invoice now, or to one that the copy is about: one that another
/// has linked since to his own stays there.
inline constexpr std::string_view kDeLaCopia =
    "(e.Suya IS NULL OR e.Suya = '' OR EXISTS (SELECT 1 FROM temp.DeLaCopia c WHERE c.Factura = "
    "trim(e.Suya) AND c.Tipo = e.Tipo AND c.Año = e.SuAnio))";

/// The keys that the copy is about, where they are soon found by what an entry tells of its
/// invoice: its concept as a number, where it is one.
void PrepararClaves(sqlite::Conexion& base);
/// The columns that the copy and the store both have of a table: either may have got or lost one.
[[nodiscard]] std::vector<std::string> Comunes(sqlite::Conexion& base, std::string_view tabla);

}  // namespace salvaguarda::sql
