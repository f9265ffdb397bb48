#pragma once

#include <span>
#include <string_view>

#include "guion/gramatica.h"

namespace guion {

class Ejecucion;

/// What a command does. `Actua` is false for those that only look or claim.
struct Accion {
  std::string_view Nombre;
  void (*Hacer)(Ejecucion&, const Orden&);
  bool Actua;
};

/// Of one of the names in `Firmas`; throws `NoSeEntiende` for another.
[[nodiscard]] const Accion& AccionDe(std::string_view nombre);

// One table for each chapter of commands.
[[nodiscard]] std::span<const Accion> AccionesDelAnfitrion();
[[nodiscard]] std::span<const Accion> AccionesDelUsuario();
[[nodiscard]] std::span<const Accion> AccionesDeMirar();
[[nodiscard]] std::span<const Accion> AccionesDeEsperar();

}  // namespace guion
