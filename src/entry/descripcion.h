#pragma once

#include <optional>
#include <string>

#include "services/sesion.h"

namespace entry {

/// The description of a concept by its code; none when there is no such concept.
[[nodiscard]] std::optional<std::string> DescripcionDe(services::Sesion& sesion,
                                                       const std::string& codigo);

}  // namespace entry
