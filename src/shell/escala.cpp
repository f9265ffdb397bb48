#include "shell/escala.h"

#include "forms/controles.h"
#include "forms/escala.h"

namespace shell {
namespace {

using services::Widget;

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
  const services::Razon sx{ancho, anchoReferencia};
  const services::Razon sy{alto, altoReferencia};
  services::ExigirReferencia(sx, sy);
  for (Widget* widget : form.Widgets()) {
    if (widget->Nombre() == "Barra1") continue;
    services::EscalarLugar(*widget, sx, sy);
    EncogerFuente(*widget);
  }
}

}  // namespace shell
