#pragma once

#include "datos/conexion.h"
#include "valores/valor.h"

namespace services {

/// `valor` as a column takes it, by the locale's rules. The result is `valor` itself when it
/// already is of the column's type, and otherwise `lugar`, which then holds the converted value.
///
/// The empty text is Null in a column that is not of text; a text column takes any value's text.
/// Throws 0x80040E21 for a value that is none of the column's type, such as a text that tells a
/// whole number with decimals or beyond 32 bits, and for Null where the column takes none. The text
/// of an amount is rounded to the cent; what is a number already stays that number, with all its
/// decimals. Whether a text is too long or a number too large is the engine's to say: what a table
/// holds must go back into it.
[[nodiscard]] const Valor& Convertir(const Valor& valor, const Columna& columna, Valor& lugar);

}  // namespace services
