#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts are UTF-8; lengths and cuts count characters. A byte that is no part of one counts as one.

namespace services {

[[nodiscard]] std::size_t Longitud(std::string_view texto);
/// The first `cuantos` characters, or all there are.
[[nodiscard]] std::string Izquierda(std::string_view texto, std::size_t cuantos);
/// Without the blanks (U+0020 alone) on both sides.
[[nodiscard]] std::string_view Trim(std::string_view texto);

[[nodiscard]] constexpr bool EsCifra(int c) noexcept {
  return c >= '0' && c <= '9';
}

/// The text as a cell shows it: a blank in the place of each tab, line break or other control sign.
[[nodiscard]] std::string EnUnaLinea(std::string_view texto);

/// The characters of a text by their code points; U+FFFD for a byte that is no part of one.
[[nodiscard]] std::u32string Signos(std::string_view texto);

/// Order of two texts without regard to case, the Spanish way: letters first (ñ after n, an
/// accented letter with its plain one), then accents; what is no letter by its code point.
/// Negative, zero or positive. Texts that differ only in case compare equal; "a" and "á" don't.
/// Any bytes at all have their place in it, as a collation needs.
[[nodiscard]] int CompararTexto(std::string_view a, std::string_view b) noexcept;
[[nodiscard]] inline bool MismoTexto(std::string_view a, std::string_view b) noexcept {
  return CompararTexto(a, b) == 0;
}

}  // namespace services
