#pragma once

#include "datos/conexion.h"
#include "valores/valor.h"

namespace services {

/// `valor` as a column takes it, by the locale's rules. The result is `valor` itself when it
/// already is of the column's type, and otherwise `lugar`, which then holds the converted value.
///
/// The empty text is Null in a column that is not of text; a text column takes any value's text.
/// Throws 0x80040E21 for a value that is none of the column's type, a text longer than the
/// column's length in characters, a whole number with decimals or beyond 32 bits, an amount of
/// 10,000,000,000,000 or more, and Null where the column takes none. Amounts keep what they hold
/// past the second decimal.
[[nodiscard]] const Valor& Convertir(const Valor& valor, const Columna& columna, Valor& lugar);

}  // namespace services
