#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "services/utiles.h"

namespace list {

/// A recurring payment: every `Cada` units from `Fecha1Vto` on. Dates are in the stored form "R".
struct Recurrencia {
  std::string Fecha1Vto;
  int Cada = 0;
  int Tipo = 0;  ///< 1 days, 2 months, anything else years
};

/// The unit of calendar addition of a `Tipo`: "d", "m" or "yyyy".
[[nodiscard]] std::string_view UnidadDe(int tipo);

/// Calls `visitar` with each date, in the stored form, that the list shows of a forecast between
/// `desde` and `hasta`, until it answers false.
///
/// A forecast that begins at `desde` or later shows its first date, even past `hasta`; one that
/// began before loses its first date inside the range. After the first, a date shows when it is
/// earlier than `hasta`, not on it. A forecast whose step doesn't go forward shows its first date
/// at most.
void RecorrerPrevision(const Recurrencia& prevision, const std::string& desde,
                       const std::string& hasta, services::Utiles& utiles,
                       const std::function<bool(const std::string& fecha)>& visitar);

}  // namespace list
