#pragma once

#include <string>

#include "salvaguarda/comienzo.h"

namespace salvaguarda::sql {

/// The rows of the attached picture `foto` that a load of the range leaves out and that its commit
/// would therefore delete, as a query of what `ColumnasDeFila` gives, each with the reason.
[[nodiscard]] std::string Excluidas(const Rango& rango);

}  // namespace salvaguarda::sql
