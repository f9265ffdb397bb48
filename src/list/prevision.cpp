#include "list/prevision.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "valores/error.h"
#include "valores/fecha.h"

namespace list {
namespace {

/// The next date, stepped through the display form; none where it can't be stepped. Adding months
/// keeps the day where the month has it, and a day once cut stays cut: each step starts from the
/// result of the one before.
std::optional<std::string> Siguiente(const std::string& actual, const Recurrencia& prevision,
                                     services::Utiles& utiles) {
  const auto fecha = services::LeerFecha(utiles.Mostrada(actual));
  // A step of nothing, or backwards, would never reach the end.
  if (!fecha || prevision.Cada <= 0) return std::nullopt;
  try {
    const auto siguiente = services::SumarFecha(UnidadDe(prevision.Tipo), prevision.Cada, *fecha);
    return utiles.Almacenada(services::TextoDeFecha(siguiente));
  } catch (const services::ErrorEjecucion& fallo) {
    if (fallo.Numero() == services::error::LlamadaNoValida) return std::nullopt;
    throw;
  }
}

}  // namespace

int EnteroDe(const services::Valor& valor) {
  constexpr double kUltimo = std::numeric_limits<int>::max();
  return valor.EsNulo() ? 0 : static_cast<int>(std::clamp(valor.Numero(), -kUltimo, kUltimo));
}

std::string_view UnidadDe(int tipo) {
  if (tipo == 1) return "d";
  if (tipo == 2) return "m";
  return "yyyy";
}

void RecorrerPrevision(const Recurrencia& prevision, const store::Intervalo& rango,
                       services::Utiles& utiles,
                       const std::function<bool(const std::string& fecha)>& visitar) {
  if (prevision.Fecha1Vto >= rango.Desde && !visitar(prevision.Fecha1Vto)) return;
  std::optional<std::string> actual = prevision.Fecha1Vto;
  // The step that reaches the range is not shown: the list has always begun with the one after it.
  while (actual && *actual < rango.Desde) actual = Siguiente(*actual, prevision, utiles);
  while (actual && *actual <= rango.Hasta) {
    actual = Siguiente(*actual, prevision, utiles);
    const bool dentro = actual && *actual < rango.Hasta && *actual >= rango.Desde;
    if (dentro && !visitar(*actual)) return;
  }
}

}  // namespace list
