#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection the collation `ES`, the Spanish order of `CompararTexto`.
void RegistrarOrden(sqlite3* base);

}  // namespace sqlite
