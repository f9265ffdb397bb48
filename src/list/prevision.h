#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "services/utiles.h"
#include "store/intervalo.h"

namespace list {

/// A recurring payment: every `Cada` units from `Fecha1Vto` on. Dates are in the stored form "R";
/// what is stored as Null is 0 here.
struct Recurrencia {
  std::string Fecha1Vto;
  int Cada = 0;
  int Tipo = 0;  ///< 1 days, 2 months, anything else years
};

/// A number of a stored forecast: Null counts 0, and what is past the whole numbers the last of
/// them.
[[nodiscard]] int EnteroDe(const services::Valor& valor);
/// The unit of calendar addition of a `Tipo`: "d", "m" or "yyyy".
[[nodiscard]] std::string_view UnidadDe(int tipo);

/// Calls `visitar` with each date, in the stored form, that the list shows of a forecast in
/// `rango`, until it answers false.
///
/// A forecast that begins when the range does or later shows its first date, even past its end; one
/// that began before loses its first date inside the range. After the first, a date shows when it
/// is earlier than the end, not on it. A forecast that can't be stepped shows its first date at
/// most: one whose step doesn't go forward, whose first date is none, or where the calendar ends.
void RecorrerPrevision(const Recurrencia& prevision, const store::Intervalo& rango,
                       services::Utiles& utiles,
                       const std::function<bool(const std::string& fecha)>& visitar);

}  // namespace list
