#pragma once

#include <initializer_list>

#include "entry/campos.h"
#include "services/sesion.h"

namespace entry {

class EdicionVencimiento;

/// A field that is in use, or isn't, in its colour.
void Habilitar(services::Widget& campo, bool estado);
void PintarBlanco(services::Widget& campo);
void PintarInhabilitado(services::Widget& campo);

/// The focus goes to the first of a chain that is enabled; where none is, it stays.
void PasarAlPrimero(std::initializer_list<services::Widget*> cadena);

/// Which keys a field takes.
enum class Tecleo { Texto, Fecha, Importe, Entero };

/// The key that comes of the one pressed in a field; 0 when it is swallowed.
[[nodiscard]] int Filtrar(services::Sesion& sesion, services::TextBox& campo, Tecleo tecleo,
                          int tecla);

/// What all fields of the panel do when they get the focus or lose it: an open cell of the receipts
/// is closed first, the field takes the colour of the focus and selects its text; left, it is white
/// again. Blocks give the fields that do more their own handlers, which begin with these.
void UnirFoco(Campos& campos, EdicionVencimiento& edicion);

}  // namespace entry
