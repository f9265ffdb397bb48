#pragma once

namespace list::color {

/// The two stripes of the rows, the first row taking A.
inline constexpr int FranjaA = 0xd3e8e9;
inline constexpr int FranjaB = 0xfcddda;
/// Text of a forecast line and of a filler row, and of any other line.
inline constexpr int TextoPrevision = 0xd11405;
inline constexpr int Texto = 0;

}  // namespace list::color
