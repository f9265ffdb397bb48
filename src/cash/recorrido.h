#pragma once

// How the rows of the cash screen lie and how its scroll bar takes them through its window. All in
// twips of the screen as designed.

namespace cash::recorrido {

/// With a line as high as this, a row takes one step of the bar: no row lies where the bar can't
/// bring it to sight, however many there are.
inline constexpr int kLinea = 180;
inline constexpr int kSeparacion = 90;
inline constexpr int kPaso = 540;
/// Where the window begins, and how high it is.
inline constexpr int kArriba = 555;
inline constexpr int kVentana = 6400;
inline constexpr int kFilasPorPagina = kVentana / kPaso;

/// The steps of the bar for so many rows that don't fit.
[[nodiscard]] constexpr int Pasos(int filas) {
  return ((filas + 1) * kPaso - kVentana + kPaso - 1) / kPaso;
}

/// Where the panel of the rows begins at a place of the bar. At the last one its end is at the
/// window's, however many steps that is.
[[nodiscard]] constexpr int ArribaDelPanel(int valor, int maximo, int alto) {
  return valor == maximo ? kArriba - (alto - kVentana) : kArriba - valor * kPaso;
}

/// The place of the bar that brings a row to sight, `arribaDelPanel` being where the panel is now:
/// the one it is at where the row is on sight already.
[[nodiscard]] int ValorQueEnsena(int fila, int arribaDelPanel, int valor);

}  // namespace cash::recorrido
