#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "datos/filas.h"

namespace services {

/// What rows are sorted by once they have been fetched; columns count from 0.
struct OrdenDeFilas {
  /// Texts, the first one first: a Null, and whatever is no text, before any text, texts as
  /// `CompararTexto` does.
  std::vector<std::size_t> Textos = {};
  /// Among rows that are equal in all of them, the column that holds the place of each, a whole
  /// number from 0 on; without it they stay as they came.
  std::optional<std::size_t> Puesto = {};

  bool operator==(const OrdenDeFilas&) const = default;
  [[nodiscard]] bool Ninguno() const { return Textos.empty() && !Puesto; }
};

void Ordenar(Filas& filas, const OrdenDeFilas& orden);

}  // namespace services
