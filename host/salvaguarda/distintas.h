#pragma once

#include <string_view>

#include "sqlite/conexion_sqlite.h"

// The rows of the attached copy, `copia`, and of an attached file that was taken before, `antes`,
// beside each other.

namespace salvaguarda {

/// Whether both have the same rows in the same order, as they do when nothing has changed: a look
/// at each, which is soon done.
[[nodiscard]] bool DicenLoMismo(sqlite::Conexion& base, std::string_view antes);

/// Puts the rows that only one of both has in `temp.Distintas`: the columns of a `Fila`, whether it
/// is the copy's, its amounts, and who wrote it when.
void ReunirDistintas(sqlite::Conexion& base, std::string_view antes);

}  // namespace salvaguarda
