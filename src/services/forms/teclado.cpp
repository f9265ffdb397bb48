#include "forms/teclado.h"

#include <algorithm>
#include <string>

#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "forms/pulsacion.h"
#include "valores/texto.h"

namespace services::pulsacion {
namespace {

std::string Utf8(char32_t c) {
  const auto byte = [](char32_t valor) { return static_cast<char>(valor); };
  if (c < 0x80) return {byte(c)};
  if (c < 0x800) return {byte(0xC0 | c >> 6), byte(0x80 | (c & 0x3F))};
  if (c < 0x10000) {
    return {byte(0xE0 | c >> 12), byte(0x80 | (c >> 6 & 0x3F)), byte(0x80 | (c & 0x3F))};
  }
  return {byte(0xF0 | c >> 18), byte(0x80 | (c >> 12 & 0x3F)), byte(0x80 | (c >> 6 & 0x3F)),
          byte(0x80 | (c & 0x3F))};
}

/// The next column with a width in that direction, or the same one.
int ColumnaVisible(const MSFlexGrid& rejilla, int desde, int paso) {
  for (int c = desde + paso; c >= 0 && c < rejilla.Cols(); c += paso) {
    if (rejilla.ColWidth(c) > 0) return c;
  }
  return desde;
}

void Insertar(TextBox& caja, std::string_view texto) {
  if (caja.Locked) return;
  const auto queda = Longitud(caja.Text()) - static_cast<std::size_t>(caja.SelLength());
  if (caja.MaxLength > 0 && queda >= static_cast<std::size_t>(caja.MaxLength())) return;
  Sustituir(caja, caja.SelStart, caja.SelLength, texto);
}

void BorrarEn(TextBox& caja, bool haciaAtras) {
  if (caja.Locked) return;
  if (caja.SelLength > 0) return Sustituir(caja, caja.SelStart, caja.SelLength, "");
  if (haciaAtras && caja.SelStart > 0) return Sustituir(caja, caja.SelStart - 1, 1, "");
  if (!haciaAtras && caja.SelStart < static_cast<int>(Longitud(caja.Text()))) {
    Sustituir(caja, caja.SelStart, 1, "");
  }
}

void MoverCursor(TextBox& caja, int codigo) {
  const int largo = static_cast<int>(Longitud(caja.Text()));
  const int paso = codigo == tecla::Izquierda ? -1 : 1;
  if (codigo != tecla::Izquierda && codigo != tecla::Derecha) return;
  const int desde = paso < 0 ? caja.SelStart() : caja.SelStart + caja.SelLength;
  caja.SelStart = std::clamp(caja.SelLength > 0 ? desde : desde + paso, 0, largo);
  caja.SelLength = 0;
}

void MoverCelda(MSFlexGrid& rejilla, int codigo) {
  const bool mueve = codigo >= tecla::Izquierda && codigo <= tecla::Abajo;
  if (mueve && EntrarALaVista(rejilla)) return;
  const int fila = rejilla.Row;
  const int columna = rejilla.Col;
  switch (codigo) {
    case tecla::Arriba:
      if (fila > 1) rejilla.MoverA(fila - 1, columna);
      break;
    case tecla::Abajo:
      if (fila + 1 < rejilla.Rows) rejilla.MoverA(fila + 1, columna);
      break;
    case tecla::Izquierda:
      rejilla.MoverA(fila, ColumnaVisible(rejilla, columna, -1));
      break;
    case tecla::Derecha:
      rejilla.MoverA(fila, ColumnaVisible(rejilla, columna, 1));
      break;
    default:
      break;
  }
}

/// What the mouse does to a cell, for who has none: the blank clicks the current one, Enter double
/// clicks it, and the arrows move.
void TeclaEnRejilla(MSFlexGrid& rejilla, int codigo) {
  if (codigo == tecla::Espacio) {
    PulsarCelda(rejilla, rejilla.Row, rejilla.Col);
  } else if (codigo == tecla::Intro) {
    DoblePulsarCelda(rejilla, rejilla.Row, rejilla.Col);
  } else {
    MoverCelda(rejilla, codigo);
  }
}

/// The arrows go round the options of a group, and choose the one they come to as a click does.
void MoverOpcion(OptionButton& opcion, int codigo) {
  const bool atras = codigo == tecla::Izquierda || codigo == tecla::Arriba;
  if (!atras && codigo != tecla::Derecha && codigo != tecla::Abajo) return;
  const std::vector<OptionButton*> grupo = opcion.Grupo();
  const auto donde = std::find(grupo.begin(), grupo.end(), &opcion);
  if (donde == grupo.end()) return;
  const auto actual = static_cast<std::size_t>(donde - grupo.begin());
  OptionButton& otra = *grupo[(actual + (atras ? grupo.size() - 1 : 1)) % grupo.size()];
  if (&otra != &opcion) Pulsar(otra);
}

void MoverElegido(ComboBox& lista, int codigo) {
  const int ultimo = static_cast<int>(lista.Elementos().size()) - 1;
  if (codigo == tecla::Arriba && lista.ListIndex > 0) lista.ListIndex = lista.ListIndex - 1;
  if (codigo == tecla::Abajo && lista.ListIndex < ultimo) lista.ListIndex = lista.ListIndex + 1;
}

bool SePulsaCon(const Widget& widget, int codigo) {
  const bool boton = dynamic_cast<const Pulsador*>(&widget) != nullptr;
  const bool marca = dynamic_cast<const CheckBox*>(&widget) != nullptr ||
                     dynamic_cast<const OptionButton*>(&widget) != nullptr ||
                     dynamic_cast<const Label*>(&widget) != nullptr;
  return (codigo == tecla::Espacio && (boton || marca)) || (codigo == tecla::Intro && boton);
}

/// What a key that isn't text does in its widget.
void Efecto(Widget& widget, int codigo) {
  if (codigo == tecla::Escape) return Cancelar(widget.Formulario());
  if (SePulsaCon(widget, codigo)) return Pulsar(widget);
  if (auto* caja = dynamic_cast<TextBox*>(&widget)) {
    if (codigo == tecla::Borrar) return BorrarEn(*caja, true);
    if (codigo == tecla::Suprimir) return BorrarEn(*caja, false);
    return MoverCursor(*caja, codigo);
  }
  if (auto* rejilla = dynamic_cast<MSFlexGrid*>(&widget)) return TeclaEnRejilla(*rejilla, codigo);
  if (auto* opcion = dynamic_cast<OptionButton*>(&widget)) return MoverOpcion(*opcion, codigo);
  if (auto* lista = dynamic_cast<ComboBox*>(&widget)) return MoverElegido(*lista, codigo);
}

bool TieneCaracter(int codigo) {
  return codigo == tecla::Borrar || codigo == tecla::Intro || codigo == tecla::Escape ||
         codigo == tecla::Espacio;
}

/// The key that types a character.
int TeclaDe(char32_t caracter) {
  if (caracter >= U'a' && caracter <= U'z') return static_cast<int>(caracter - U'a' + U'A');
  const bool propia = caracter <= U' ' || (caracter >= U'0' && caracter <= U'9') ||
                      (caracter >= U'A' && caracter <= U'Z');
  return propia ? static_cast<int>(caracter) : tecla::OtroCaracter;
}

void EscribirEnCelda(MSFlexGrid& rejilla, int caracter);

/// What a key does once the handlers have let `queda` through: a character is text in a text box
/// and in the editor of a cell; in other widgets only the blank does anything.
void Surtir(Widget& widget, int queda, bool esCaracter) {
  if (queda == 0) return;
  if (!esCaracter || queda < tecla::Espacio) return Efecto(widget, queda);
  if (auto* caja = dynamic_cast<TextBox*>(&widget)) {
    return Insertar(*caja, Utf8(static_cast<char32_t>(queda)));
  }
  if (queda == tecla::Espacio) return Efecto(widget, queda);
  if (auto* rejilla = dynamic_cast<MSFlexGrid*>(&widget)) EscribirEnCelda(*rejilla, queda);
}

/// Who starts typing over a cell means its editor: the box that a double click opens over the grid
/// takes the character. A field of another panel that gets the focus doesn't.
void EscribirEnCelda(MSFlexGrid& rejilla, int caracter) {
  if (rejilla.Row < 1 || rejilla.ColWidth(rejilla.Col) == 0) return;
  SegundaPulsacion(rejilla);
  auto* editor = dynamic_cast<TextBox*>(rejilla.Formulario().Escritorio().Foco());
  if (editor && editor->Contenedor() == rejilla.Contenedor())
    Escribir(*editor, static_cast<char32_t>(caracter));
}

}  // namespace

void Sustituir(TextBox& caja, int desde, int cuantos, std::string_view texto) {
  const std::string antes = Izquierda(caja.Text(), static_cast<std::size_t>(desde));
  const std::string hasta =
      Izquierda(caja.Text(), static_cast<std::size_t>(desde) + static_cast<std::size_t>(cuantos));
  std::string nuevo = antes;
  nuevo += texto;
  nuevo += caja.Text().substr(hasta.size());
  const bool cambia = caja.Text != nuevo;
  caja.SelLength = 0;
  caja.SelStart = 0;
  // The caret is put in place first: the change may move the focus, and with it the selection.
  caja.Text.PonerEnSilencio(nuevo);
  caja.SelStart = desde + static_cast<int>(Longitud(texto));
  if (cambia) caja.Cambiada(Aspecto::Text);
}

bool EntrarALaVista(MSFlexGrid& rejilla) {
  if (rejilla.Rows < 2 || rejilla.ColWidth(rejilla.Col) > 0) return false;
  const int columna = ColumnaVisible(rejilla, -1, 1);
  if (columna < 0) return false;
  rejilla.MoverA(std::clamp<int>(rejilla.TopRow, 1, rejilla.Rows - 1), columna);
  return true;
}

void Cancelar(const Form& form) {
  for (Widget* widget : form.Widgets()) {
    auto* boton = dynamic_cast<Pulsador*>(widget);
    if (boton && boton->Cancela && boton->Alcanzable()) return PulsarDesdeLejos(*boton);
  }
  const Cintilla* barra = BarraDe(form);
  if (barra && form.Escritorio().EsModal(form)) Widget::Disparar(barra->Cerrar);
}

int PasarTecla(Widget& widget, int codigo, int caracter) {
  const bool tenia = widget.TieneFoco();
  const auto seFue = [&] { return tenia && !widget.TieneFoco(); };
  if (widget.KeyDown) widget.KeyDown(codigo);
  if (codigo == 0 || seFue()) return 0;
  if (caracter == 0) return codigo;
  if (widget.KeyPress) widget.KeyPress(caracter);
  return seFue() ? 0 : caracter;
}

void Tecla(Widget& widget, int codigo) {
  const bool esCaracter = TieneCaracter(codigo);
  Surtir(widget, PasarTecla(widget, codigo, esCaracter ? codigo : 0), esCaracter);
}

void Escribir(Widget& widget, char32_t caracter) {
  Surtir(widget, PasarTecla(widget, TeclaDe(caracter), static_cast<int>(caracter)), true);
}

}  // namespace services::pulsacion
