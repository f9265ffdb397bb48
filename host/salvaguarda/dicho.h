#pragma once

#include <string>

#include "valores/valor.h"

// Stored values as users write them.

namespace salvaguarda {

/// A stored date, `yyyymmdd`; any other text as it is.
[[nodiscard]] std::string FechaDicha(const std::string& guardada);
/// A stored moment, in any of its forms; any other text as it is.
[[nodiscard]] std::string MomentoDicho(const std::string& guardado);

/// An amount, "1.234,56".
[[nodiscard]] std::string ImporteDicho(const services::Valor& importe);
/// What was paid: "nada" for none.
[[nodiscard]] std::string PagadoDicho(const services::Valor& pagado);

}  // namespace salvaguarda
