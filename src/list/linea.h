#pragma once

#include <string>

#include "forms/msflexgrid.h"

namespace list {

/// Columns of `MSFPagos`. What the first two hold depends on the order chosen; the last two are
/// hidden.
namespace columna {
inline constexpr int NFactura = 2;
inline constexpr int Importe = 3;
inline constexpr int Pagado = 4;
inline constexpr int Marca = 5;
inline constexpr int NConcepto = 6;
inline constexpr int Anio = 7;
inline constexpr int Cuantas = 8;
}  // namespace columna

/// Which of the first two columns holds what.
struct Orden {
  int Fecha = 0;
  int Concepto = 1;

  bool operator==(const Orden&) const = default;
};
inline constexpr Orden PorFecha{0, 1};
inline constexpr Orden PorConcepto{1, 0};

/// What a row of the list stands for: the key of a due date, or an occurrence of a forecast, which
/// has neither number nor year.
struct Linea {
  std::string NConcepto;
  std::string NFactura;
  std::string Anio;
  std::string FechaVto;  ///< display form

  bool operator==(const Linea&) const = default;
};

/// That of a row of a grid in that order; throws 381 for a row that the grid hasn't.
[[nodiscard]] inline Linea LineaDe(const services::MSFlexGrid& rejilla, int fila,
                                   const Orden& orden) {
  return {rejilla.TextMatrix(fila, columna::NConcepto), rejilla.TextMatrix(fila, columna::NFactura),
          rejilla.TextMatrix(fila, columna::Anio), rejilla.TextMatrix(fila, orden.Fecha)};
}

}  // namespace list
