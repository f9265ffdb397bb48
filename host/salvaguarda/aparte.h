#pragma once

#include <string>

#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// Whether a file holds what a working file does.
[[nodiscard]] bool HayCopia(sqlite::Conexion& aparte);

/// The working copy in a file that was kept aside takes the place of whatever the working tables
/// hold, with what was noted of it. Throws what the engine throws, with nothing changed.
void TraerCopia(sqlite::Conexion& deTrabajo, const std::string& fichero);

}  // namespace salvaguarda
