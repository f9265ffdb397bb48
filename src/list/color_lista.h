#pragma once

namespace list::color {

/// The two stripes of the rows, the first row taking A.
inline constexpr int FranjaA = 0xd3e8e9;
inline constexpr int FranjaB = 0xfcddda;
/// Text of a forecast line and of a filler row, and of any other line.
inline constexpr int TextoPrevision = 0xd11405;
inline constexpr int Texto = 0;
/// The current row.
inline constexpr int FondoElegida = 14794931;
inline constexpr int TextoElegida = 0xFFFFFF;

/// The stripe that follows one.
constexpr int OtraFranja(int fondo) {
  return fondo == FranjaA ? FranjaB : FranjaA;
}

}  // namespace list::color
