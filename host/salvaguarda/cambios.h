#pragma once

#include <string_view>
#include <vector>

#include "salvaguarda/cambio.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What the attached file `copia` says otherwise than the attached one of that name, which was
/// taken before: invoices, forecasts and cash entries that were changed, added or deleted since. No
/// difference is who wrote a row when, nor what any commit makes of it; nor is one that is gone and
/// that this commit doesn't bring back. The keys of the commit stand where `salvaguarda/ambito.h`
/// tells.
[[nodiscard]] std::vector<Cambio> LeerCambios(sqlite::Conexion& base, std::string_view antes);

}  // namespace salvaguarda
