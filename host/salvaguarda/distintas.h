#pragma once

#include "sqlite/conexion_sqlite.h"

// The rows of the attached copy, `copia`, and of the attached picture, `foto`, beside each other.

namespace salvaguarda {

/// Whether both have the same rows in the same order, as they do when nothing has changed: a look
/// at each, which is soon done.
[[nodiscard]] bool DicenLoMismo(sqlite::Conexion& base);

/// Puts the rows that only one of both has in `temp.Distintas`: the columns of a `Fila`, whether it
/// is the copy's, its amounts, and who wrote it when.
void ReunirDistintas(sqlite::Conexion& base);

}  // namespace salvaguarda
