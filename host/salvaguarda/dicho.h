#pragma once

#include <string>

// Stored values as users write them.

namespace salvaguarda {

/// A stored date, `yyyymmdd`; any other text as it is.
[[nodiscard]] std::string FechaDicha(const std::string& guardada);
/// A stored moment, in any of its forms; any other text as it is.
[[nodiscard]] std::string MomentoDicho(const std::string& guardado);

}  // namespace salvaguarda
