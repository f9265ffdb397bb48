#pragma once

/// The most characters that the user can type in a field, by what it holds.
namespace services::largo {
inline constexpr int Fecha = 10;
inline constexpr int Importe = 15;
}  // namespace services::largo
