#pragma once

#include <string_view>

#include "forms/widget.h"

// What a user does, told to the models. The window and the scenario runner go through these alone,
// so both run the same handlers in the same order. Each is an event of its own: errors of handlers
// don't come out.

namespace services {

class ComboBox;
class MSFlexGrid;
class TextBox;
class VScrollBar;
class Cintilla;
struct Raton;

namespace tecla {
inline constexpr int Borrar = 8;
inline constexpr int Tabulador = 9;
inline constexpr int Intro = 13;
inline constexpr int Escape = 27;
inline constexpr int Espacio = 32;
inline constexpr int PaginaArriba = 33;
inline constexpr int PaginaAbajo = 34;
inline constexpr int Fin = 35;
inline constexpr int Inicio = 36;
inline constexpr int Izquierda = 37;
inline constexpr int Arriba = 38;
inline constexpr int Derecha = 39;
inline constexpr int Abajo = 40;
inline constexpr int Suprimir = 46;
/// A key that has a character and no code of its own, told apart from the arrows.
inline constexpr int OtroCaracter = 255;
}  // namespace tecla

namespace entrada {

/// A click. On a widget that takes the focus: `MouseDown`, the focus moves, the value changes,
/// `Click`, `MouseUp`; lost when the focus doesn't arrive. On one that doesn't: `MouseDown`,
/// `Click`, `MouseUp`. Nothing on what is hidden or disabled.
void Pulsar(Widget& widget);
/// A click on a cell: focus to the grid, the current cell moves, `Click`. Row and column from 0;
/// a click on the header row, or on a row that has gone meanwhile, goes no further than the focus.
/// Whether it reached a row.
bool PulsarCelda(MSFlexGrid& rejilla, int fila, int columna);
/// A click, and then `DblClick`.
void DoblePulsarCelda(MSFlexGrid& rejilla, int fila, int columna);
/// The second press of a double click, the first of which was told as a click: `DblClick`.
void SegundaPulsacion(MSFlexGrid& rejilla);
/// A key of the window, such as the page keys, takes the current cell to another one. A cell that
/// isn't there is the nearest one of the data; out of a column that isn't shown it goes to the
/// first cell on sight, as with the arrows.
void LlevarCelda(MSFlexGrid& rejilla, int fila, int columna);
/// The user goes to a widget.
void Enfocar(Widget& widget);

/// A key that isn't a character of text, one of `tecla`, in the widget with the focus: `KeyDown`,
/// `KeyPress` for those that have a character, and then what the key does there. In a grid the
/// blank clicks the current cell, Enter double clicks it, and an arrow moves it; among options the
/// arrows go to the next one and choose it.
void Tecla(Widget& widget, int codigo);
/// A character typed: `KeyDown` with the key of a figure or letter, the letter's capital, or else
/// with `tecla::OtroCaracter`; `KeyPress`; and it takes the place of the selection. A box that is
/// full at its `MaxLength` swallows it then. In a grid it fires `DblClick`, and goes to the editor
/// that this opens.
void Escribir(Widget& widget, char32_t caracter);
/// The text changed in a way other than by keys, as by pasting; what is past its `MaxLength` falls
/// off. A `Locked` box keeps its text, whatever comes.
void CambiarTexto(TextBox& caja, std::string_view texto);
/// Where the user put the caret and the selection, in characters from 0.
void Seleccionar(TextBox& caja, int desde, int cuantos);
/// Chooses an item of a list, by its place from 0.
void Elegir(ComboBox& lista, int elemento);
/// Moves a scroll bar.
void Mover(VScrollBar& barra, int valor);
/// The close event of a title bar, and what the mouse does on it.
void CerrarBarra(Cintilla& barra);
void PulsarBarra(Cintilla& barra, const Raton& raton);
void MoverEnBarra(Cintilla& barra, const Raton& raton);
void SoltarBarra(Cintilla& barra, const Raton& raton);
/// Tab or, backwards, Shift and Tab: `KeyDown` of the widget with the focus, which may consume it
/// or move the focus itself, and then the focus goes to the next widget in the designed order. When
/// no widget has it, it goes on from where it was lost.
void Tabular(Form& form, bool atras);
/// The user wants to see what is in a screen larger by so many steps, or smaller.
void Acercar(Form& form, int pasos);
/// Escape in a screen of which no widget has the focus: clicks the button that cancels, or closes a
/// modal screen without one.
void Cancelar(Form& form);

}  // namespace entrada
}  // namespace services
