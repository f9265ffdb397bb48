#include "valores/error.h"

namespace services {
namespace {

/// Made beforehand: there may be no memory left to make it.
const ErrorEjecucion kSinDescripcion(error::Interno, "Error interno");

}  // namespace

ErrorEjecucion ErrorEnCurso() noexcept {
  try {
    try {
      throw;
    } catch (const ErrorEjecucion& fallo) {
      return fallo;
    } catch (const std::exception& fallo) {
      return {error::Interno, fallo.what()};
    }
  } catch (...) {
    return kSinDescripcion;
  }
}

}  // namespace services
