#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/token.h"

// The system writes its statements by joining texts, and a value with a quote in it makes another
// statement of the one that it stands in: "x' or Año like '2005" would delete a year. So a
// statement is one of those that are known, whatever its values, or it isn't run.

namespace dialecto {

/// What is left of a statement without its values: a text as `''`, a date as `##`, a whole number
/// as `0`; all else as it is written, case and blanks too. Only what means itself is left out: a
/// text with doubled quotes in it, which means another, stays, and so does a number with a point or
/// of more figures than are compared.
[[nodiscard]] std::string Forma(std::string_view sentencia, std::span<const Token> tokens);

/// The statements that may be run, each in the modes in which it is opened: what reads an invoice's
/// due dates and what changes one of them differ by a condition that a value could bring along.
class Formas {
 public:
  /// Those of the system, and `propias` in any mode.
  explicit Formas(std::span<const std::string> propias);

  /// What `Forma` gives for a statement.
  [[nodiscard]] bool Tiene(const std::string& forma, services::ModoApertura modo) const;

 private:
  /// A bit for each mode.
  std::unordered_map<std::string, std::uint8_t> modos_;
};

}  // namespace dialecto
