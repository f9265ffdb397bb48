#pragma once

#include <functional>
#include <string_view>

#include "forms/controles.h"
#include "forms/msflexgrid.h"

namespace list {

/// How far an editor stands out of its cell, twips.
struct Sangria {
  int Izquierda = 0;
  int Arriba = 0;
};

/// Lays an in-place editor over the current cell of its grid, a little larger than it, with the
/// cell's text in it, and gives it the focus.
void AbrirSobreCelda(services::TextBox& editor, const services::MSFlexGrid& rejilla,
                     const Sangria& sangria);
/// Empties and hides it.
void Cerrar(services::TextBox& editor);

/// By how many rows the nearest row that `vale` is away from the current one, negative upwards
/// ("Arr", else downwards); 0 when there is none.
[[nodiscard]] int DistanciaHasta(const services::MSFlexGrid& rejilla, std::string_view direccion,
                                 const std::function<bool(int fila)>& vale);

}  // namespace list
