#pragma once

#include <sqlite3.h>

namespace sqlite {

/// Registers on a connection what its statements ask of the engine besides its own functions.
/// `MOMENTO(x)` is the text of a stored moment by which moments are in order, whatever the form in
/// which it is stored; what is no moment stays as it is. `LIKE` tells letters apart as the
/// collation `ES` does: by their accents, not by their case.
void RegistrarFunciones(sqlite3* base);

}  // namespace sqlite
