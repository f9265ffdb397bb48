#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection the collation `ES`, the Spanish order of `CompararTexto`; `LIKE` as
/// `Coincide`; and `texto_fecha`, the text form of a stored date and time.
void RegistrarFunciones(sqlite3* base);

}  // namespace sqlite
