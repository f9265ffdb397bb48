#pragma once

#include "anfitrion/datos.h"

namespace anfitrion {

/// Asks in windows of their own, before there is any of the suite's.
[[nodiscard]] AlAbrir EnVentanas();
/// Where there is nobody to ask: yes to what is asked, which is written out, and no password.
[[nodiscard]] AlAbrir SinNadie();

}  // namespace anfitrion
