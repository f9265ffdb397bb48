#include "guion/acciones.h"

#include <string>

namespace guion {

const Accion& AccionDe(std::string_view nombre) {
  for (const std::span<const Accion> capitulo :
       {AccionesDelAnfitrion(), AccionesDelUsuario(), AccionesDeMirar(), AccionesDeEsperar()}) {
    for (const Accion& accion : capitulo) {
      if (accion.Nombre == nombre) return accion;
    }
  }
  throw NoSeEntiende("orden desconocida: " + std::string(nombre));
}

}  // namespace guion
