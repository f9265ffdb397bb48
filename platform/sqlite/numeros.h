#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection what finds rows by their numbers. The aggregate `numerar(n)` gathers
/// whole numbers, each once, in the order in which they first came, into one value. `"numeros de
/// filas"(v)` is a table of such a value: `numero` and `orden`, the place where it first came, from
/// 0; sorted by that, and `"numeros de filas en orden"(v)` by number: rows are then looked up along
/// the file, and not from one end to the other and back. No table of the file takes their place
/// unless it has a blank in its name.
void RegistrarNumeros(sqlite3* base);

}  // namespace sqlite
