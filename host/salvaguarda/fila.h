#pragma once

#include <string>
#include <vector>

namespace salvaguarda {

/// A row of the suite's tables as it is told to the user.
struct Fila {
  /// The stored table that it belongs to.
  std::string Tabla;
  std::string NConcepto;
  std::string Factura;  ///< empty for a forecast, and for a cash entry without one
  std::string Anio;
  /// Its due date, its VAT rate, or its moment.
  std::string Detalle = {};
  /// What is the matter with it, a sentence without its full stop; empty where that is told for
  /// all.
  std::string Motivo = {};

  bool operator==(const Fila&) const = default;
};

/// "factura F-1 de 2005 del concepto 400"
[[nodiscard]] std::string Nombre(const Fila& fila);
/// How many rows of which table: "2 facturas, 1 vencimiento"
[[nodiscard]] std::string Recuento(const std::vector<Fila>& filas);
/// A line each, the first `hasta` of them, and how many more there are.
[[nodiscard]] std::string Relacion(const std::vector<Fila>& filas, std::size_t hasta);

}  // namespace salvaguarda
