#pragma once

#include <string>

class QKeyEvent;

/// Keys of the toolkit as the models know them.
namespace qt::teclado {

/// The code of a key that isn't a character, or is one with a code of its own such as Enter; 0 for
/// any other, and for one pressed together with a modifier.
[[nodiscard]] int Codigo(const QKeyEvent& evento);
/// That of a key that goes through a list by pages or to its ends; 0 for any other.
[[nodiscard]] int CodigoDeLista(const QKeyEvent& evento);
/// How much larger the user wants to see what is there, in steps: Ctrl with plus or minus; 0 for
/// any other key.
[[nodiscard]] int PasosDeZoom(const QKeyEvent& evento);
/// The characters that it types; none for a command.
[[nodiscard]] std::u32string Caracteres(const QKeyEvent& evento);
[[nodiscard]] bool EsTabulador(const QKeyEvent& evento);
/// Whether the key means something to a widget rather than to the window.
[[nodiscard]] bool EsDelWidget(const QKeyEvent& evento);

}  // namespace qt::teclado
