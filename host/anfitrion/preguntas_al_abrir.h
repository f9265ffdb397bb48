#pragma once

#include "anfitrion/datos.h"

namespace anfitrion {

/// Asks in windows of their own, before there is any of the suite's.
[[nodiscard]] AlAbrir EnVentanas();

}  // namespace anfitrion
