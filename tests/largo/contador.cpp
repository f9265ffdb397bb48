#include "largo/contador.h"

#include "forms/controles.h"
#include "forms/msflexgrid.h"

namespace largo {
namespace {

template <class Firma>
struct Contado;
/// A handler in the place of another one, of which it tells.
template <class... Argumentos>
struct Contado<void(Argumentos...)> {
  std::function<void(Argumentos...)> Detras;
  std::string Nombre;
  AlAtender Decir;
  void operator()(Argumentos... argumentos) const {
    Decir(Nombre);
    Detras(std::forward<Argumentos>(argumentos)...);
  }
};

struct Visita {
  const AlAtender& AlHaber;
  const AlAtender& Decir;
  std::string De;

  template <class Firma>
  void operator()(std::function<Firma>& ranura, const char* evento) const {
    if (!ranura || ranura.template target<Contado<Firma>>()) return;
    const std::string nombre = De + "_" + evento;
    AlHaber(nombre);
    ranura = Contado<Firma>{std::move(ranura), nombre, Decir};
  }
};

void Visitar(services::Widget& widget, const Visita& en) {
  en(widget.Click, "Click");
  en(widget.DblClick, "DblClick");
  en(widget.GotFocus, "GotFocus");
  en(widget.LostFocus, "LostFocus");
  en(widget.MouseDown, "MouseDown");
  en(widget.MouseUp, "MouseUp");
  en(widget.KeyDown, "KeyDown");
  en(widget.KeyPress, "KeyPress");
  if (auto* caja = dynamic_cast<services::TextBox*>(&widget)) en(caja->Change, "Change");
  if (auto* barra = dynamic_cast<services::VScrollBar*>(&widget)) en(barra->Change, "Change");
  if (auto* rejilla = dynamic_cast<services::MSFlexGrid*>(&widget)) {
    en(rejilla->RowColChange, "RowColChange");
    en(rejilla->LeaveCell, "LeaveCell");
  }
  if (auto* cintilla = dynamic_cast<services::Cintilla*>(&widget)) {
    en(cintilla->Cerrar, "Cerrar");
  }
}

}  // namespace

void ContarManejadores(services::Form& form, const AlAtender& alHaber, const AlAtender& alAtender) {
  for (services::Widget* widget : form.Widgets()) {
    Visitar(*widget, {alHaber, alAtender, form.Nombre() + "." + widget->Nombre()});
  }
}

}  // namespace largo
