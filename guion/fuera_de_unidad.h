#pragma once

#include <functional>
#include <vector>

#include "datos/conexion.h"
#include "guion/base.h"

namespace guion {

/// What a scenario does on a database by itself: not in the unit of work under way, which ends.
/// Throws `NoSeEntiende` with the engine's words when it is refused.
void FueraDeUnidad(services::Conexion& conexion, const std::function<void()>& accion);

/// Rows, each value as it is printed.
[[nodiscard]] std::vector<Base::Fila> EnTextos(const services::Filas& filas);

}  // namespace guion
