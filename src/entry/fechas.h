#pragma once

#include <string>
#include <string_view>

#include "forms/controles.h"
#include "services/sesion.h"

namespace entry {

/// Today as a field shows it.
[[nodiscard]] std::string Hoy(services::Sesion& sesion);

/// A shown date so many units ("d", "m", "yyyy") later, as it is shown; a part of a unit doesn't
/// count. Throws 13 for a text that is no date, and 5 where the calendar ends.
[[nodiscard]] std::string FechaMas(const std::string& fecha, std::string_view unidad,
                                   double cuantos);

/// The unit that the first date of a forecast is proposed by. "Días" is written with its accent,
/// and asked for here without it: days are proposed as years. What is saved counts them as days all
/// the same.
[[nodiscard]] std::string_view UnidadDePropuesta(const std::string& plazo);

/// What is said of a date that isn't eight or ten characters long, and of one before the invoice's.
struct ReparosDeFecha {
  const char* Incorrecta;
  const char* Anterior;
};
inline constexpr const char* kPrevisionAnterior =
    "La Fecha de la previsión no puede ser menor a la Fecha Factura";

/// Whether a date is none before the invoice's; one that is says so and gets the focus, when it is
/// enabled. Without a date of the invoice any text passes.
[[nodiscard]] bool ComprobarFecha(services::Sesion& sesion, services::TextBox& fecha,
                                  const services::TextBox& factura, const ReparosDeFecha& reparos);

}  // namespace entry
