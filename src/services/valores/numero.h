#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Reading of numbers under the Spanish locale: `.` thousands wherever it stands after a figure of
// the whole part, `,` decimal, an exponent after `e`, blanks around ignored. `&H` and `&O` lead
// hexadecimal and octal figures, negative in the upper half of the narrowest of 16, 32 and 64 bits
// that holds them.

namespace services {

/// The Double of a text; throws 13 where it is no number, 6 where it doesn't fit a Double.
[[nodiscard]] double Numero(std::string_view texto);
/// The same, with no value instead of an error.
[[nodiscard]] std::optional<double> LeerNumero(std::string_view texto);
[[nodiscard]] bool EsNumero(std::string_view texto);

/// The whole number of a text that is nothing but figures, where it fits 31 bits.
[[nodiscard]] std::optional<int> EnteroDeCifras(std::string_view texto);

/// The number at the start of a text, with the point as its decimal mark and blanks left out; 0
/// where there is none. Throws 6 where it doesn't fit a Double.
[[nodiscard]] double Val(std::string_view texto);

/// The text of a Double: up to 15 significant figures, decimal comma, no thousands; with an
/// exponent from 1E+15 up and below 0,0001. Throws 6 where the value is no finite number.
[[nodiscard]] std::string TextoDeNumero(double valor);

/// `valor` written out with `decimales` decimals, rounded on its decimal text of 15 significant
/// figures, ties away from zero; decimal point, `-` in front unless all figures are 0. Throws 6
/// where the value is no finite number.
[[nodiscard]] std::string Redondeado(double valor, int decimales);

}  // namespace services
