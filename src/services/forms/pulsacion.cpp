#include "forms/pulsacion.h"

#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"

namespace services::pulsacion {
namespace {

bool SeConsiente(Widget& widget, Gesto gesto) {
  Ventana* ventana = widget.Formulario().Vista();
  return !ventana || ventana->Consiente(widget, gesto);
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

void Soltar(Widget& widget) {
  CambiarYPulsar(widget);
  Widget::Disparar(widget.MouseUp);
}

}  // namespace

bool LlevarFoco(Widget& widget) {
  return widget.Formulario().Escritorio().DarFoco(widget);
}

void Pulsar(Widget& widget) {
  if (!SeConsiente(widget, Gesto::Pulsar)) return;
  Widget::Disparar(widget.MouseDown);
  if (!widget.TomaFocoAlPulsar() || LlevarFoco(widget)) Soltar(widget);
}

void PulsarDesdeLejos(Widget& widget) {
  if (!SeConsiente(widget, Gesto::Pulsar)) return;
  Widget::Disparar(widget.MouseDown);
  Soltar(widget);
}

bool PulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
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

void DoblePulsarCelda(MSFlexGrid& rejilla, int fila, int columna) {
  if (PulsarCelda(rejilla, fila, columna) && rejilla.TieneFoco()) SegundaPulsacion(rejilla);
}

void SegundaPulsacion(MSFlexGrid& rejilla) {
  if (SeConsiente(rejilla, Gesto::DoblePulsar)) Widget::Disparar(rejilla.DblClick);
}

}  // namespace services::pulsacion
