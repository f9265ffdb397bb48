#include "shell/escala.h"

#include "forms/controles.h"
#include "valores/error.h"

namespace shell {
namespace {

using services::Widget;

/// Actual size over the size of reference; products are cut towards zero.
struct Razon {
  int Real;
  int Referencia;

  [[nodiscard]] int De(int medida) const {
    return static_cast<int>(static_cast<long long>(medida) * Real / Referencia);
  }
};

void Colocar(Widget& widget, Razon sx, Razon sy) {
  if (auto* linea = dynamic_cast<services::Line*>(&widget)) {
    linea->X1 = sx.De(linea->X1);
    linea->X2 = sx.De(linea->X2);
    linea->Y1 = sy.De(linea->Y1);
    linea->Y2 = sy.De(linea->Y2);
    return;
  }
  widget.Left = sx.De(widget.Left);
  widget.Width = sx.De(widget.Width);
  widget.Top = sy.De(widget.Top);
  if (!dynamic_cast<services::ComboBox*>(&widget)) widget.Height = sy.De(widget.Height);
}

/// Fonts shrink whatever the ratio.
void EncogerFuente(Widget& widget) {
  if (dynamic_cast<services::Label*>(&widget)) {
    widget.FontSize = widget.FontSize - 2;
    widget.Height = widget.Height + 80;
  } else if (dynamic_cast<services::OptionButton*>(&widget) ||
             dynamic_cast<services::CheckBox*>(&widget)) {
    widget.FontSize = widget.FontSize - 3;
    widget.Height = widget.Height - 30;
  } else if (dynamic_cast<services::TextBox*>(&widget)) {
    widget.FontSize = widget.FontSize - 1;
    // A fixed value, not a change; the box stays as high as its line.
    widget.Height = 100;
  } else if (dynamic_cast<services::ComboBox*>(&widget)) {
    widget.FontSize = widget.FontSize - 1;
  } else if (auto* imagen = dynamic_cast<services::Image*>(&widget)) {
    imagen->Stretch = true;
  }
}

}  // namespace

void EscalarControles(services::Form& form, int ancho, int alto, int anchoReferencia,
                      int altoReferencia) {
  if (anchoReferencia == 0 || altoReferencia == 0) {
    throw services::ErrorEjecucion(services::error::DivisionPorCero,
                                   "División por cero: la sesión no dice para qué pantalla están "
                                   "hechas las ventanas");
  }
  for (Widget* widget : form.Widgets()) {
    if (widget->Nombre() == "Barra1") continue;
    Colocar(*widget, {ancho, anchoReferencia}, {alto, altoReferencia});
    EncogerFuente(*widget);
  }
}

}  // namespace shell
