#include "forms/entrada.h"

#include <algorithm>
#include <functional>
#include <string>

#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "forms/pulsacion.h"
#include "forms/teclado.h"
#include "valores/texto.h"

namespace services::entrada {
namespace {

/// Whether the user gets to it.
bool AlAlcance(const Widget& widget) {
  const Form& form = widget.Formulario();
  return widget.Alcanzable() && form.Escritorio().AlAlcance(form);
}

void Evento(Widget& widget, const std::function<void()>& accion) {
  widget.Formulario().Escritorio().Evento(accion);
}

/// Tells the widget that has the focus of the Tab key; whether the key is still to be followed.
bool PasarTabulador(Form& form) {
  Widget* foco = form.Escritorio().Foco();
  return !foco || &foco->Formulario() != &form ||
         pulsacion::PasarTecla(*foco, tecla::Tabulador, 0) != 0;
}

/// Where the Tab key starts from: what has the focus or, when nothing has, what lost it. Null for a
/// widget of another screen, or for none.
const Widget* DondeEstaba(const Form& form) {
  const Widget* foco = form.Escritorio().Foco();
  if (!foco) foco = form.Escritorio().FocoPerdido();
  return foco && &foco->Formulario() == &form ? foco : nullptr;
}

/// Whether the Tab key comes to a widget past another one, which itself may be out of its order:
/// then what shares its panel comes next.
bool Pasa(const Widget& otro, const Widget& desde, bool atras) {
  if (desde.TabIndex < 0) return otro.Contenedor() == desde.Contenedor();
  return atras ? otro.TabIndex < desde.TabIndex : otro.TabIndex > desde.TabIndex;
}

/// The next in that order, round from its end to its beginning.
Widget& SiguienteEn(const std::vector<Widget*>& orden, const Widget* desde, bool atras) {
  const auto actual = std::find(orden.begin(), orden.end(), desde);
  auto siguiente = orden.end();
  if (actual != orden.end()) {
    siguiente = std::next(actual);
  } else if (desde) {
    siguiente = std::find_if(orden.begin(), orden.end(),
                             [&](const Widget* w) { return Pasa(*w, *desde, atras); });
  }
  return siguiente == orden.end() ? *orden.front() : **siguiente;
}

void TabularAhora(Form& form, bool atras) {
  if (!PasarTabulador(form)) return;
  std::vector<Widget*> orden = form.OrdenDeTabulacion();
  if (orden.empty()) return;
  if (atras) std::reverse(orden.begin(), orden.end());
  pulsacion::LlevarFoco(SiguienteEn(orden, DondeEstaba(form), atras));
}

}  // namespace

void Pulsar(Widget& widget) {
  if (!AlAlcance(widget)) return;
  Evento(widget, [&] { pulsacion::Pulsar(widget); });
}

bool PulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  bool llega = false;
  if (!AlAlcance(rejilla)) return false;
  Evento(rejilla, [&] { llega = pulsacion::PulsarCelda(rejilla, fila, columna); });
  return llega;
}

void DoblePulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (!AlAlcance(rejilla)) return;
  Evento(rejilla, [&] { pulsacion::DoblePulsarCelda(rejilla, fila, columna); });
}

void SegundaPulsacion(MSFlexGrid& rejilla) {
  if (!AlAlcance(rejilla) || !rejilla.TieneFoco()) return;
  Evento(rejilla, [&] { pulsacion::SegundaPulsacion(rejilla); });
}

void LlevarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (!AlAlcance(rejilla) || rejilla.Rows < 2) return;
  const int ultima = rejilla.Rows - 1;
  Evento(rejilla, [&] {
    if (pulsacion::EntrarALaVista(rejilla)) return;
    rejilla.MoverA(std::clamp(fila, 1, ultima), std::clamp(columna, 0, rejilla.Cols() - 1));
  });
}

void Enfocar(Widget& widget) {
  if (!AlAlcance(widget)) return;
  Evento(widget, [&] { pulsacion::LlevarFoco(widget); });
}

void Tecla(Widget& widget, int codigo) {
  if (!AlAlcance(widget)) return;
  if (codigo == tecla::Tabulador) return Tabular(widget.Formulario(), false);
  Evento(widget, [&] { pulsacion::Tecla(widget, codigo); });
}

void Escribir(Widget& widget, char32_t caracter) {
  if (!AlAlcance(widget)) return;
  Evento(widget, [&] { pulsacion::Escribir(widget, caracter); });
}

void CambiarTexto(TextBox& caja, std::string_view texto) {
  if (!AlAlcance(caja) || caja.Locked) return;
  const auto limite = static_cast<std::size_t>(caja.MaxLength());
  const std::string nuevo = limite > 0 ? Izquierda(texto, limite) : std::string(texto);
  if (caja.Text == nuevo) return;
  Evento(caja,
         [&] { pulsacion::Sustituir(caja, 0, static_cast<int>(Longitud(caja.Text())), nuevo); });
}

void Seleccionar(TextBox& caja, int desde, int cuantos) {
  const int largo = static_cast<int>(Longitud(caja.Text()));
  caja.SelStart = std::clamp(desde, 0, largo);
  caja.SelLength = std::clamp(cuantos, 0, largo - caja.SelStart());
}

void Elegir(ComboBox& lista, int elemento) {
  if (!AlAlcance(lista)) return;
  Evento(lista, [&] {
    if (pulsacion::LlevarFoco(lista)) lista.ListIndex = elemento;
  });
}

void Mover(VScrollBar& barra, int valor) {
  if (!AlAlcance(barra)) return;
  Evento(barra, [&] { barra.Value = valor; });
}

void CerrarBarra(Cintilla& barra) {
  if (!AlAlcance(barra)) return;
  Evento(barra, [&] { Widget::Disparar(barra.Cerrar); });
}

namespace {

void DelRaton(Cintilla& barra, const Cintilla::EventoRaton& suceso, const Raton& raton) {
  if (AlAlcance(barra) && suceso) Evento(barra, [&] { suceso(raton); });
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
  if (!form.Escritorio().AlAlcance(form)) return;
  form.Escritorio().Evento([&] { TabularAhora(form, atras); });
}

void Acercar(Form& form, int pasos) {
  if (!form.Escritorio().AlAlcance(form)) return;
  form.Escritorio().Evento([&] { form.Form_Zoom(pasos); });
}

void Cancelar(Form& form) {
  if (!form.Escritorio().AlAlcance(form)) return;
  form.Escritorio().Evento([&] { pulsacion::Cancelar(form); });
}

}  // namespace services::entrada
