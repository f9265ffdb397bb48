#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection what its statements ask of the engine besides its own functions:
/// `MOMENTO(x)`, the text of a stored moment by which moments are in order, whatever the form in
/// which it is stored; what is no moment stays as it is.
void RegistrarFunciones(sqlite3* base);

}  // namespace sqlite
