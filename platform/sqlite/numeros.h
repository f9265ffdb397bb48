#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection what finds rows by their numbers. The aggregate `numerar(n)` gathers
/// whole numbers, each once, in the order in which they first came, into one value. `numeros(v)` is
/// a table of such a value: `numero` and `orden`, the place where it first came, from 0; sorted by
/// that, and `numeros_en_orden(v)` by number. A thousand rows looked up so are looked up along the
/// file, and not from one end to the other and back.
void RegistrarNumeros(sqlite3* base);

}  // namespace sqlite
