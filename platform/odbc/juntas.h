#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>

namespace odbc {

/// Of so many rows or questions a statement is made for the server: what each costs falls no
/// further from here on.
inline constexpr std::size_t kJuntas = 64;

/// How many go together next, of those that are left: a power of two, so that few statements are
/// prepared.
[[nodiscard]] inline std::size_t Siguientes(std::size_t quedan) {
  return std::min(kJuntas, std::bit_floor(quedan));
}

}  // namespace odbc
