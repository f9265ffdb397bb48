#pragma once

#include "forms/form.h"

namespace shell {

/// Fits all widgets of a form but `Barra1` to a screen of another size than the one it was laid out
/// for. Measures in twips; the size of reference must not be zero (throws 11).
void EscalarControles(services::Form& form, int ancho, int alto, int anchoReferencia,
                      int altoReferencia);

}  // namespace shell
