#pragma once

/// The most characters that the user can type in a field, by what it holds.
namespace services::largo {
inline constexpr int Fecha = 10;
inline constexpr int Importe = 15;
inline constexpr int Factura = 20;
inline constexpr int Concepto = 60;
inline constexpr int Recibos = 3;
/// Days, or units between two occurrences.
inline constexpr int Dias = 4;
/// A rate in hundredths.
inline constexpr int Tanto = 5;
}  // namespace services::largo
