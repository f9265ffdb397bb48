#pragma once

#include <string_view>

#include "forms/widget.h"

// What keys do, as part of an event of the user that is already under way.

namespace services {

class Form;
class MSFlexGrid;
class TextBox;

namespace pulsacion {

/// Puts a text in the place of the characters from `desde` on, with the caret behind it.
void Sustituir(TextBox& caja, int desde, int cuantos, std::string_view texto);
/// A list made anew leaves its current cell in a column that isn't shown. The first key that moves
/// takes it to where the user looks; whether it did.
bool EntrarALaVista(MSFlexGrid& rejilla);
/// Escape presses the button of the screen that cancels, where it can be reached; a modal screen
/// without one closes by its title bar.
void Cancelar(const Form& form);
/// Runs `KeyDown` and, where the key has a character, `KeyPress`; what is left of the key, 0 when a
/// handler consumed it or the focus went away meanwhile.
int PasarTecla(Widget& widget, int codigo, int caracter);
/// A key that isn't a character of text, one of `tecla`.
void Tecla(Widget& widget, int codigo);
/// A character typed.
void Escribir(Widget& widget, char32_t caracter);

}  // namespace pulsacion
}  // namespace services
