#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "datos/conexion.h"

namespace largo {

/// What passes between the component and a connection is told before it happens: each statement
/// that is opened, and each call, a statement or not. Whoever is told may end the process there.
struct Vigilante {
  std::function<void(std::string_view sentencia)> AlAbrir = [](std::string_view) {};
  std::function<void()> AlLlamar = [] {};
};

/// A connection that behaves as the one behind it, and tells.
[[nodiscard]] services::Ref<services::Conexion> Vigilar(services::Ref<services::Conexion> detras,
                                                        std::shared_ptr<Vigilante> vigilante);

}  // namespace largo
