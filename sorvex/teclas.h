#pragma once

#include "forms/controles.h"

namespace sorvex {

/// What is left of a key pressed in a field: the key itself, another one in its place, or 0 when
/// the field doesn't take it. Erase, Enter and Escape always come through.

/// In a date field: figures and `/`. A figure typed at the end, with nothing selected, behind two
/// figures of day or month writes the `/` between them first.
[[nodiscard]] int TeclaFecha(services::TextBox& caja, int tecla);

/// In an amount: figures, `,`, `.` (which becomes `,`), and a `-` in front of all. A second comma
/// is let in: an amount that is no number is complained of, one that lost a mark would not be.
/// In a field of whole numbers: figures.
[[nodiscard]] int TeclaImporte(const services::TextBox& caja, int tecla, bool soloEnteros);

}  // namespace sorvex
