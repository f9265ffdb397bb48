#pragma once

#include <cstddef>
#include <span>

#include "datos/filas.h"

namespace services {

/// Sorts rows by the texts of some columns, the first one first: a Null, and whatever is no text,
/// before any text, texts as `CompararTexto` does. Rows that are equal in all of them stay as they
/// came.
void Ordenar(Filas& filas, std::span<const std::size_t> columnas);

}  // namespace services
