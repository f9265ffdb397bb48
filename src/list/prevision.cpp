#include "list/prevision.h"

#include "valores/fecha.h"

namespace list {
namespace {

/// The next date, stepped through the display form. Adding months keeps the day where the month
/// has it, and a day once cut stays cut: each step starts from the result of the one before.
std::string Siguiente(const std::string& actual, const Recurrencia& prevision,
                      services::Utiles& utiles) {
  const services::FechaHora fecha = services::Fecha(utiles.ConvertirFecha(actual, 1, "R", "D"));
  const auto siguiente = services::SumarFecha(UnidadDe(prevision.Tipo), prevision.Cada, fecha);
  return utiles.ConvertirFecha(services::TextoDeFecha(siguiente), 2, "D", "R");
}

}  // namespace

std::string_view UnidadDe(int tipo) {
  if (tipo == 1) return "d";
  if (tipo == 2) return "m";
  return "yyyy";
}

void RecorrerPrevision(const Recurrencia& prevision, const std::string& desde,
                       const std::string& hasta, services::Utiles& utiles,
                       const std::function<bool(const std::string& fecha)>& visitar) {
  if (prevision.Fecha1Vto >= desde && !visitar(prevision.Fecha1Vto)) return;
  // A step of nothing, or backwards, would never reach the end.
  if (prevision.Cada <= 0) return;
  std::string actual = prevision.Fecha1Vto;
  // The step that reaches the range is not shown: the list has always begun with the one after it.
  while (actual < desde) actual = Siguiente(actual, prevision, utiles);
  while (actual <= hasta) {
    actual = Siguiente(actual, prevision, utiles);
    if (actual < hasta && actual >= desde && !visitar(actual)) return;
  }
}

}  // namespace list
