#pragma once

#include <span>
#include <string_view>

#include "datos/conexion.h"

// The tables of both databases, told once for every engine.

namespace esquema {

struct Columna {
  std::string_view Nombre;
  services::TipoColumna Tipo = services::TipoColumna::Texto;
  int Longitud = 0;  ///< most characters of a text, most figures of an amount; 0 for no limit
};

struct Tabla {
  std::string_view Nombre;
  std::span<const Columna> Columnas;
  /// The columns of its unique key, which take no Null; none where rows may repeat.
  std::span<const std::string_view> Clave;
};

/// The tables that the suite shares, and the host's own record of deletions.
[[nodiscard]] std::span<const Tabla> Almacenadas();
/// The tables of the working copy and of the list. No column has a limit: they take whatever the
/// stored ones hold.
[[nodiscard]] std::span<const Tabla> DeTrabajo();

}  // namespace esquema
