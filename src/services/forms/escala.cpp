#include "forms/escala.h"

#include "forms/controles.h"
#include "valores/error.h"

namespace services {

void ExigirReferencia(Razon sx, Razon sy) {
  if (sx.Referencia != 0 && sy.Referencia != 0) return;
  throw ErrorEjecucion(error::DivisionPorCero,
                       "División por cero: la sesión no dice para qué pantalla están hechas las "
                       "ventanas");
}

void EscalarLugar(Widget& widget, Razon sx, Razon sy) {
  if (auto* linea = dynamic_cast<Line*>(&widget)) {
    linea->X1 = sx.De(linea->X1);
    linea->X2 = sx.De(linea->X2);
    linea->Y1 = sy.De(linea->Y1);
    linea->Y2 = sy.De(linea->Y2);
    return;
  }
  widget.Left = sx.De(widget.Left);
  widget.Width = sx.De(widget.Width);
  widget.Top = sy.De(widget.Top);
  if (!dynamic_cast<ComboBox*>(&widget)) widget.Height = sy.De(widget.Height);
}

}  // namespace services
