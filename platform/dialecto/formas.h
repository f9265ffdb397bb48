#pragma once

#include <string>
#include <vector>

#include "dialecto/token.h"

// The system writes its statements by joining texts, and a value with a quote in it makes another
// statement of the one that it stands in: "x' or Año like '2005" would delete a year. So a
// statement is one of those that the system has, whatever its values, or it isn't understood.

namespace dialecto {

/// What is left of a statement without its values: `?` for each literal; names and words without
/// regard to case; one way of trimming; the conditions joined by And in one order.
[[nodiscard]] std::string Forma(const std::vector<Token>& tokens);

/// Whether the statement has the form of one of the system's. One without conditions holds no value
/// and is always one.
[[nodiscard]] bool EsDelSistema(const std::vector<Token>& tokens);

}  // namespace dialecto
