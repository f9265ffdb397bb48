#pragma once

#include <span>
#include <string_view>

#include "datos/conexion.h"

namespace dialecto {

/// A statement and how it is opened.
struct Escrita {
  services::ModoApertura Modo;
  std::string_view Texto;
};

/// The statements of the system, each as it is written, with any values in it.
[[nodiscard]] std::span<const Escrita> Sentencias();

}  // namespace dialecto
