#pragma once

#include <QString>
#include <string>

#include "valores/fecha.h"

namespace anfitrion {

/// The local time.
[[nodiscard]] services::FechaHora Ahora();
/// A date as it is stored, as users write it; any other text as it is.
[[nodiscard]] QString FechaMostrada(const std::string& guardada);

}  // namespace anfitrion
