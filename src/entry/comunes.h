#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "entry/campos.h"
#include "services/sesion.h"

namespace entry {

class EdicionVencimiento;

/// A field that is in use, or isn't, in its colour.
void Habilitar(services::Widget& campo, bool estado);
void PintarBlanco(services::Widget& campo);
void PintarInhabilitado(services::Widget& campo);

/// The focus goes to the first of a chain that is enabled; where none is, it stays.
void PasarAlPrimero(const std::vector<services::Widget*>& cadena);

/// Which keys a field takes.
enum class Tecleo { Fecha, Importe, Entero };

/// The key that comes of the one pressed in a field; 0 when it is swallowed.
[[nodiscard]] int Filtrar(services::Sesion& sesion, services::TextBox& campo, Tecleo tecleo,
                          int tecla);

/// A field gets the focus: an open cell of the receipts is closed first, then it takes the colour
/// of the focus and selects its text.
void RecibirFoco(services::TextBox& campo, EdicionVencimiento& edicion);

/// Gives the fields of the panel what they do alike when they get the focus. `TxtConcepto` and
/// `TxtIFra`, which do more, do so themselves, as do all that do more when they are left.
void UnirFoco(Campos& campos, EdicionVencimiento& edicion);

/// The keys that a field takes, and where Enter goes on from it: to the first of a chain.
void UnirTecleo(services::Sesion& sesion, services::TextBox& campo, Tecleo tecleo,
                std::initializer_list<services::Widget*> cadena);

/// Tells why something doesn't go on, gives that field the focus, and says so: always false.
bool Rechazar(services::Sesion& sesion, const std::string& motivo, services::Widget& campo);

}  // namespace entry
