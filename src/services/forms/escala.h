#pragma once

#include "forms/widget.h"

namespace services {

/// Actual size over the size of reference; products are cut towards zero.
struct Razon {
  int Real;
  int Referencia;

  [[nodiscard]] int De(int medida) const {
    return static_cast<int>(static_cast<long long>(medida) * Real / Referencia);
  }
};

/// Throws 11 when a size of reference is zero: the session doesn't say what the screens are laid
/// out for.
void ExigirReferencia(Razon sx, Razon sy);

/// Moves and stretches a widget by those ratios of width and height: a line by its ends; the height
/// of a list stays.
void EscalarLugar(Widget& widget, Razon sx, Razon sy);

}  // namespace services
