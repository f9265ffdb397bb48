#pragma once

#include <functional>
#include <vector>

#include "guion/gramatica.h"

namespace guion {

/// Where a run takes its commands from: gives the next one, which lives as long as the source, and
/// null when there is none left. It is told the exit status as it stands by then.
using Fuente = std::function<const Orden*(int estado)>;

/// The commands of a text, one after the other.
[[nodiscard]] Fuente Seguidas(std::vector<Orden> ordenes);

}  // namespace guion
