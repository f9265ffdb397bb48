#pragma once

#include "forms/controles.h"
#include "forms/msflexgrid.h"

namespace list {

/// Lays an in-place editor over the current cell of its grid, a little larger than it, with the
/// cell's text in it, and gives it the focus. `sangria` is how far it stands out to the left,
/// twips.
void AbrirSobreCelda(services::TextBox& editor, const services::MSFlexGrid& rejilla, int sangria);
/// Empties and hides it.
void Cerrar(services::TextBox& editor);

}  // namespace list
