#pragma once

#include <string>
#include <vector>

#include "salvaguarda/conceptos.h"
#include "salvaguarda/fila.h"

namespace salvaguarda {

/// "factura F-1 de 2005 de Luz y Fuerza (400), por 121,00"
[[nodiscard]] std::string Nombre(const Fila& fila, const Conceptos& conceptos);

/// How long a list of rows may be, in rows and in bytes; its first row is there in any case.
struct Tope {
  std::size_t Filas;
  std::size_t Bytes;
};
/// As much as anyone reads through.
inline constexpr Tope kALaVista{100, 40'000};
/// As much as a line of the log holds.
inline constexpr Tope kEnElRegistro{20'000, 20'000};

/// A line for each row, but for what is told with its invoice.
struct Relacion {
  std::string Texto;
  std::size_t QueFaltan = 0;  ///< how many lines there aren't, which the text tells too
};
[[nodiscard]] Relacion Relatar(const std::vector<Fila>& filas, const Conceptos& conceptos,
                               Tope hasta);

}  // namespace salvaguarda
