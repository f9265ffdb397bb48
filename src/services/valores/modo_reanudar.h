#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "valores/error.h"

namespace services {

/// Continue-after-failure mode: off until it is turned on. While off, the error of a step goes to
/// the caller; while on, it is kept here until it is cleared and the next step runs.
class ModoReanudar {
 public:
  void Activar() noexcept { activo_ = true; }
  void Desactivar() noexcept { activo_ = false; }

  template <class Accion>
  void Paso(Accion&& accion) {
    if (!activo_) {
      std::forward<Accion>(accion)();
      return;
    }
    try {
      std::forward<Accion>(accion)();
    } catch (const ErrorEjecucion& fallo) {
      error_ = fallo;
    }
  }

  /// The number of the last error kept, 0 when there is none.
  [[nodiscard]] std::int32_t Numero() const noexcept { return error_ ? error_->Numero() : 0; }
  [[nodiscard]] std::string Descripcion() const { return error_ ? error_->Descripcion() : ""; }
  void Limpiar() noexcept { error_.reset(); }

 private:
  bool activo_ = false;
  std::optional<ErrorEjecucion> error_;
};

}  // namespace services
