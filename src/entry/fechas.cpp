#include "entry/fechas.h"

#include <algorithm>
#include <cstdint>

#include "valores/fecha.h"
#include "valores/texto.h"

namespace entry {
namespace {

constexpr std::size_t kLargoCorto = 8;
constexpr std::size_t kLargo = 10;

}  // namespace

std::string Hoy(services::Sesion& sesion) {
  return sesion.Utiles().Normalizada(services::TextoDeFecha(sesion.Ahora()));
}

std::string FechaMas(const std::string& fecha, std::string_view unidad, double cuantos) {
  // Farther than any calendar goes, and a whole number still.
  constexpr double kLejos = 1e12;
  const auto enteros = static_cast<std::int64_t>(std::clamp(cuantos, -kLejos, kLejos));
  return services::TextoDeFecha(services::SumarFecha(unidad, enteros, services::Fecha(fecha)));
}

std::string_view UnidadDePropuesta(const std::string& plazo) {
  if (plazo == "Dias") return "d";
  return plazo == "Meses" ? "m" : "yyyy";
}

bool ComprobarFecha(services::Sesion& sesion, services::TextBox& fecha,
                    const services::TextBox& factura, const ReparosDeFecha& reparos) {
  if (factura.Text().empty()) return true;
  const std::size_t largo = services::Longitud(fecha.Text());
  if (largo != kLargo && largo != kLargoCorto) {
    sesion.Aviso().Rechazar(reparos.Incorrecta);
  } else if (sesion.Utiles().Almacenada(fecha.Text()) <
             sesion.Utiles().Almacenada(factura.Text())) {
    sesion.Aviso().Mostrar(reparos.Anterior, services::mensaje::Simple, "");
  } else {
    return true;
  }
  fecha.SetFocus();
  fecha.SeleccionarTodo();
  return false;
}

}  // namespace entry
