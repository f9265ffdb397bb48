#pragma once

#include <span>

#include "muestra/negocio.h"

namespace muestra {

/// Suppliers and expenses, by their code.
[[nodiscard]] std::span<const Concepto> Conceptos();

}  // namespace muestra
