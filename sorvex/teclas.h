#pragma once

#include "forms/controles.h"

namespace sorvex {

/// What is left of a key pressed in a field: the key itself, another one in its place, or 0 when
/// the field doesn't take it. Erase, Enter and Escape always come through.

/// In a date field: figures and `/`. A figure typed at the end, with nothing selected, behind two
/// figures of day or month writes the `/` between them first.
[[nodiscard]] int TeclaFecha(services::TextBox& caja, int tecla);

/// In an amount: figures, `,`, `.` (which becomes `,`), and a `-` in front of all. A second comma
/// behind just three figures makes the first one a thousands' point, so that 1.234,50 can be typed
/// as it is read; anywhere else it is swallowed. In a field of whole numbers: figures and one `,`.
[[nodiscard]] int TeclaImporte(services::TextBox& caja, int tecla, bool soloEnteros);

}  // namespace sorvex
