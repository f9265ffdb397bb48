#include "forms/entrada.h"

#include <algorithm>
#include <functional>
#include <string>

#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "valores/texto.h"

namespace services::entrada {
namespace {

void Evento(Widget& widget, const std::function<void()>& accion) {
  widget.Formulario().Escritorio().Evento(accion);
}

/// Moves the focus to where the user went; false when it didn't arrive.
bool LlevarFoco(Widget& widget) {
  return widget.Formulario().Escritorio().DarFoco(widget);
}

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

/// What a click does to the value of a widget, and its `Click`. The value's own change fires it
/// where it has one.
void CambiarYPulsar(Widget& widget) {
  if (auto* casilla = dynamic_cast<CheckBox*>(&widget)) {
    casilla->Value = !casilla->Value;
  } else if (auto* opcion = dynamic_cast<OptionButton*>(&widget); opcion && !opcion->Value) {
    opcion->Value = true;
  } else {
    Widget::Disparar(widget.Click);
  }
}

void PulsarAhora(Widget& widget) {
  Widget::Disparar(widget.MouseDown);
  if (widget.AdmiteFoco() && !LlevarFoco(widget)) return;
  CambiarYPulsar(widget);
  Widget::Disparar(widget.MouseUp);
}

/// Whether the click reached a row.
bool PulsarCeldaAhora(MSFlexGrid& rejilla, int fila, int columna) {
  Widget::Disparar(rejilla.MouseDown);
  if (!LlevarFoco(rejilla)) return false;
  // The handler of the widget that was left may have dropped the row.
  const bool enDatos = fila > 0 && fila < rejilla.Rows;
  if (enDatos) {
    rejilla.MoverA(fila, columna);
    Widget::Disparar(rejilla.Click);
  }
  Widget::Disparar(rejilla.MouseUp);
  return enDatos;
}

/// Puts a text in the place of the characters from `desde` on.
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

/// The next column with a width in that direction, or the same one.
int ColumnaVisible(const MSFlexGrid& rejilla, int desde, int paso) {
  for (int c = desde + paso; c >= 0 && c < rejilla.Cols(); c += paso) {
    if (rejilla.ColWidth(c) > 0) return c;
  }
  return desde;
}

void MoverCelda(MSFlexGrid& rejilla, int codigo) {
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

void MoverElegido(ComboBox& lista, int codigo) {
  const int ultimo = static_cast<int>(lista.Elementos().size()) - 1;
  if (codigo == tecla::Arriba && lista.ListIndex > 0) lista.ListIndex = lista.ListIndex - 1;
  if (codigo == tecla::Abajo && lista.ListIndex < ultimo) lista.ListIndex = lista.ListIndex + 1;
}

bool SePulsaCon(const Widget& widget, int codigo) {
  const bool boton = dynamic_cast<const Pulsador*>(&widget) != nullptr;
  const bool marca = dynamic_cast<const CheckBox*>(&widget) != nullptr ||
                     dynamic_cast<const OptionButton*>(&widget) != nullptr;
  return (codigo == tecla::Espacio && (boton || marca)) || (codigo == tecla::Intro && boton);
}

/// What a key that isn't text does in its widget.
void Efecto(Widget& widget, int codigo) {
  if (SePulsaCon(widget, codigo)) return PulsarAhora(widget);
  if (auto* caja = dynamic_cast<TextBox*>(&widget)) {
    if (codigo == tecla::Borrar) return BorrarEn(*caja, true);
    if (codigo == tecla::Suprimir) return BorrarEn(*caja, false);
    return MoverCursor(*caja, codigo);
  }
  if (auto* rejilla = dynamic_cast<MSFlexGrid*>(&widget)) return MoverCelda(*rejilla, codigo);
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

/// Runs `KeyDown` and, where the key has a character, `KeyPress`; what is left of the key, 0 when a
/// handler consumed it or the focus went away meanwhile.
int PasarTecla(Widget& widget, int codigo, int caracter) {
  const bool tenia = widget.TieneFoco();
  const auto seFue = [&] { return tenia && !widget.TieneFoco(); };
  if (widget.KeyDown) widget.KeyDown(codigo);
  if (codigo == 0 || seFue()) return 0;
  if (caracter == 0) return codigo;
  if (widget.KeyPress) widget.KeyPress(caracter);
  return seFue() ? 0 : caracter;
}

/// What a key does once the handlers have let `queda` through: a character is text in a text box,
/// and in other widgets only the blank does anything.
void Surtir(Widget& widget, int queda, bool esCaracter) {
  if (queda == 0) return;
  if (!esCaracter || queda < tecla::Espacio) return Efecto(widget, queda);
  if (auto* caja = dynamic_cast<TextBox*>(&widget)) {
    return Insertar(*caja, Utf8(static_cast<char32_t>(queda)));
  }
  if (queda == tecla::Espacio) Efecto(widget, queda);
}

void TabularAhora(Form& form, bool atras) {
  const std::vector<Widget*> orden = form.OrdenDeTabulacion();
  if (orden.empty()) return;
  const auto donde = std::find(orden.begin(), orden.end(), form.Escritorio().Foco());
  const std::size_t cuantos = orden.size();
  const auto actual = static_cast<std::size_t>(donde - orden.begin());
  std::size_t siguiente = atras ? cuantos - 1 : 0;
  if (donde != orden.end()) siguiente = (actual + (atras ? cuantos - 1 : 1)) % cuantos;
  LlevarFoco(*orden[siguiente]);
}

}  // namespace

void Pulsar(Widget& widget) {
  if (!widget.Alcanzable()) return;
  Evento(widget, [&] { PulsarAhora(widget); });
}

void PulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (!rejilla.Alcanzable()) return;
  Evento(rejilla, [&] { PulsarCeldaAhora(rejilla, fila, columna); });
}

void DoblePulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (!rejilla.Alcanzable()) return;
  Evento(rejilla, [&] {
    if (PulsarCeldaAhora(rejilla, fila, columna) && rejilla.TieneFoco())
      Widget::Disparar(rejilla.DblClick);
  });
}

void SegundaPulsacion(MSFlexGrid& rejilla) {
  if (!rejilla.Alcanzable() || !rejilla.TieneFoco()) return;
  Evento(rejilla, [&] { Widget::Disparar(rejilla.DblClick); });
}

void LlevarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (!rejilla.Alcanzable() || rejilla.Rows < 2) return;
  const int ultima = rejilla.Rows - 1;
  Evento(rejilla, [&] {
    rejilla.MoverA(std::clamp(fila, 1, ultima), std::clamp(columna, 0, rejilla.Cols() - 1));
  });
}

void Enfocar(Widget& widget) {
  Evento(widget, [&] { LlevarFoco(widget); });
}

void Tecla(Widget& widget, int codigo) {
  if (!widget.Alcanzable()) return;
  if (codigo == tecla::Tabulador) return Tabular(widget.Formulario(), false);
  Evento(widget, [&] {
    const bool esCaracter = TieneCaracter(codigo);
    Surtir(widget, PasarTecla(widget, codigo, esCaracter ? codigo : 0), esCaracter);
  });
}

void Escribir(Widget& widget, char32_t caracter) {
  if (!widget.Alcanzable()) return;
  Evento(widget, [&] {
    Surtir(widget, PasarTecla(widget, TeclaDe(caracter), static_cast<int>(caracter)), true);
  });
}

void CambiarTexto(TextBox& caja, std::string_view texto) {
  if (!caja.Alcanzable() || caja.Locked) return;
  const auto limite = static_cast<std::size_t>(caja.MaxLength());
  const std::string nuevo = limite > 0 ? Izquierda(texto, limite) : std::string(texto);
  if (caja.Text == nuevo) return;
  Evento(caja, [&] { Sustituir(caja, 0, static_cast<int>(Longitud(caja.Text())), nuevo); });
}

void Seleccionar(TextBox& caja, int desde, int cuantos) {
  const int largo = static_cast<int>(Longitud(caja.Text()));
  caja.SelStart = std::clamp(desde, 0, largo);
  caja.SelLength = std::clamp(cuantos, 0, largo - caja.SelStart());
}

void Elegir(ComboBox& lista, int elemento) {
  if (!lista.Alcanzable()) return;
  Evento(lista, [&] {
    if (LlevarFoco(lista)) lista.ListIndex = elemento;
  });
}

void Mover(VScrollBar& barra, int valor) {
  if (!barra.Alcanzable()) return;
  Evento(barra, [&] { barra.Value = valor; });
}

void CerrarBarra(Cintilla& barra) {
  Evento(barra, [&] { Widget::Disparar(barra.Cerrar); });
}

namespace {

void DelRaton(Cintilla& barra, const Cintilla::EventoRaton& suceso, const Raton& raton) {
  if (barra.Alcanzable() && suceso) Evento(barra, [&] { suceso(raton); });
}

}  // namespace

void PulsarBarra(Cintilla& barra, const Raton& raton) {
  DelRaton(barra, barra.Pulsada, raton);
}

void MoverEnBarra(Cintilla& barra, const Raton& raton) {
  DelRaton(barra, barra.Movida, raton);
}

void SoltarBarra(Cintilla& barra, const Raton& raton) {
  DelRaton(barra, barra.Soltada, raton);
}

void Tabular(Form& form, bool atras) {
  form.Escritorio().Evento([&] { TabularAhora(form, atras); });
}

}  // namespace services::entrada
