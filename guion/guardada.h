#pragma once

#include <functional>
#include <memory>
#include <string>

#include "datos/conexion.h"

namespace salvaguarda {
class Guardia;
struct Trato;
}  // namespace salvaguarda

namespace guion {

/// The suite's guard of one session, and the way to the stored tables that it stands in.
struct Guardada {
  std::shared_ptr<salvaguarda::Guardia> Guardia;
  services::Ref<services::Conexion> Datos;
};

/// Makes one for a user. Throws `services::ErrorEjecucion`.
using Guardar =
    std::function<Guardada(const std::string& usuario, const salvaguarda::Trato& trato)>;

}  // namespace guion
