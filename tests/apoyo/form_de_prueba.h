#pragma once

#include <cstdint>

#include "services/anfitrion.h"

namespace apoyo {

/// A host's form without a window, which offers whatever else is asked of it.
template <class... Mas>
class FormDePrueba : public services::ObjetoContado<services::IForm, Mas...> {
 public:
  services::Rectangulo Geometria() noexcept override { return Lugar; }
  std::int32_t WindowState() noexcept override { return Estado; }
  void PonerWindowState(std::int32_t estado) noexcept override { Estado = estado; }
  void Refresh() noexcept override { ++Refrescos; }
  void* VentanaNativa() noexcept override { return nullptr; }

  services::Rectangulo Lugar{0, 0, 15360, 11520};
  std::int32_t Estado = 0;
  int Refrescos = 0;
};

}  // namespace apoyo
