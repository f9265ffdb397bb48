#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "dialecto/motor.h"

// The statements by which rows are added and changed, which the system never writes itself.

namespace dialecto {

[[nodiscard]] std::string EntreComillas(const Motor& motor, std::string_view nombre);

/// Adds `filas` rows of the same columns, with a `?` for each value; for none of them, one row of
/// its defaults.
[[nodiscard]] std::string TextoDeInsercion(const Motor& motor, std::string_view tabla,
                                           std::span<const std::string_view> columnas,
                                           std::size_t filas = 1);

/// A DELETE with a condition as so many of them with other values.
[[nodiscard]] std::string TextoDeBorrados(const std::string& uno, std::size_t cuantos);

/// A SELECT as so many of them with other values, whose rows begin with the number of theirs, from
/// 0. They come in its order, which begins at `orden`.
[[nodiscard]] std::string TextoDeConsultas(const std::string& una, std::size_t orden,
                                           std::size_t cuantas);

/// `UPDATE tabla SET` each of the columns to a `?`.
[[nodiscard]] std::string TextoDeCambio(const Motor& motor, std::string_view tabla,
                                        std::span<const std::string_view> columnas);

}  // namespace dialecto
