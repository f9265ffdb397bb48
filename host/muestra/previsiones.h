#pragma once

#include <vector>

#include "muestra/negocio.h"

namespace muestra {

/// Recurring payments in days, months and years: some under way on that day, some that begin in its
/// month, and some later.
[[nodiscard]] std::vector<Prevision> Previsiones(services::FechaHora hoy);

}  // namespace muestra
