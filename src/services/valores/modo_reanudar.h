#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "valores/error.h"

namespace services {

/// Continue-after-failure mode: off until it is turned on. While off, the error of a step goes to
/// the caller; while on, the step is passed over and `alPasarPorAlto` is told of its error.
class ModoReanudar {
 public:
  using Oyente = std::function<void(const ErrorEjecucion&)>;
  explicit ModoReanudar(Oyente alPasarPorAlto) : alPasarPorAlto_(std::move(alPasarPorAlto)) {}

  void Activar() noexcept { activo_ = true; }
  void Desactivar() noexcept { activo_ = false; }

  /// Whether the step went well.
  template <class Accion>
  bool Paso(Accion&& accion) {
    if (!activo_) {
      std::forward<Accion>(accion)();
      return true;
    }
    try {
      std::forward<Accion>(accion)();
      return true;
    } catch (const ErrorEjecucion& fallo) {
      alPasarPorAlto_(fallo);
      return false;
    }
  }

 private:
  Oyente alPasarPorAlto_;
  bool activo_ = false;
};

}  // namespace services
