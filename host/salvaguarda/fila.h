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
  /// What it is about, "121,00" or "121,00, antes 100,00"; empty where that isn't told.
  std::string Importe = {};

  bool operator==(const Fila&) const = default;
};

/// Orders texts that are the same whatever their case.
struct SinCaso {
  bool operator()(const std::string& a, const std::string& b) const;
};
/// Orders rows by what tells them apart, without regard to case.
struct PorSuClave {
  bool operator()(const Fila& a, const Fila& b) const;
};

/// Those of the rows whose keys the others haven't.
[[nodiscard]] std::vector<Fila> Sin(const std::vector<Fila>& filas, const std::vector<Fila>& otras);

/// Those of the forecasts, and those of all else.
struct PorPrevision {
  std::vector<Fila> Previsiones;
  std::vector<Fila> LasDemas;
};
[[nodiscard]] PorPrevision SepararPrevisiones(const std::vector<Fila>& filas);

/// How many rows of which table: "2 facturas, 1 vencimiento"
[[nodiscard]] std::string Recuento(const std::vector<Fila>& filas);

}  // namespace salvaguarda
