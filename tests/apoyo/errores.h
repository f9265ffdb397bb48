#pragma once

#include <cstdint>
#include <string>

#include "valores/error.h"

namespace apoyo {

/// The number of the error that `accion` throws; 0 when it throws none.
template <class Accion>
std::int32_t NumeroDeError(Accion&& accion) {
  try {
    static_cast<void>(accion());
  } catch (const services::ErrorEjecucion& fallo) {
    return fallo.Numero();
  }
  return 0;
}

/// The same for its text; empty when it throws none.
template <class Accion>
std::string DescripcionDeError(Accion&& accion) {
  try {
    static_cast<void>(accion());
  } catch (const services::ErrorEjecucion& fallo) {
    return fallo.Descripcion();
  }
  return "";
}

}  // namespace apoyo
