#pragma once

#include "forms/widget.h"

// What the mouse does, as part of an event of the user that is already under way. What a key
// presses comes here too: the window consents to it, or nothing of it happens.

namespace services {

class MSFlexGrid;

namespace pulsacion {

/// Moves the focus to where the user went; false when it didn't arrive.
bool LlevarFoco(Widget& widget);
/// `MouseDown`, the focus, the value and `Click`, `MouseUp`; lost when the focus doesn't arrive.
void Pulsar(Widget& widget);
/// The same by a key pressed elsewhere: the focus stays.
void PulsarDesdeLejos(Widget& widget);
/// Whether the click reached a row.
bool PulsarCelda(MSFlexGrid& rejilla, int fila, int columna);
void DoblePulsarCelda(MSFlexGrid& rejilla, int fila, int columna);
/// `DblClick`, the first press of it having been a click.
void SegundaPulsacion(MSFlexGrid& rejilla);

}  // namespace pulsacion
}  // namespace services
