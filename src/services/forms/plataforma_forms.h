#pragma once

#include <functional>
#include <memory>

#include "valores/error.h"

namespace services {

class Form;
class Ventana;

/// What the forms runtime needs made for it.
struct PlataformaDeForms {
  std::function<std::unique_ptr<Ventana>(Form&)> CrearVentana;
  /// An error that no handler caught.
  std::function<void(const ErrorEjecucion&)> ErrorNoControlado;
  /// The user is kept waiting, or no longer. May be left out.
  std::function<void(bool)> Ocupado;
};

}  // namespace services
