#include "forms/controles.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "forms/form.h"
#include "valores/error.h"
#include "valores/texto.h"

namespace services {

PictureBox::PictureBox(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno) {}

void PictureBox::PaintPicture(std::shared_ptr<const Lamina> imagen, int x, int y, int ancho,
                              int alto) {
  pintadas_.push_back({std::move(imagen), x, y, ancho, alto});
  Mostrar(Aspecto::Picture);
}

void PictureBox::Cls() {
  pintadas_.clear();
  Mostrar(Aspecto::Picture);
}

TextBox::TextBox(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno) {
  BackColor.PonerEnSilencio(color::Blanco);
  ForeColor.PonerEnSilencio(color::Negro);
}

void TextBox::SeleccionarTodo() {
  SelStart = 0;
  SelLength = static_cast<int>(Longitud(Text()));
}

std::optional<Valor> TextBox::Leer(Aspecto aspecto) const {
  return aspecto == Aspecto::Text ? Valor(Text()) : Widget::Leer(aspecto);
}

int TextBox::AltoDeLinea(double puntos) {
  return static_cast<int>(std::lround(puntos * 23)) + 95;
}

void TextBox::Cambiada(Aspecto aspecto) {
  if (aspecto == Aspecto::Geometria || aspecto == Aspecto::Fuente) {
    Height.PonerEnSilencio(std::max(Height(), AltoDeLinea(FontSize)));
  }
  if (aspecto == Aspecto::Text) {
    const int largo = static_cast<int>(Longitud(Text()));
    SelStart.PonerEnSilencio(std::min(SelStart(), largo));
    SelLength.PonerEnSilencio(std::min(SelLength(), largo - SelStart()));
  }
  Widget::Cambiada(aspecto);
  if (aspecto == Aspecto::Text) Disparar(Change);
}

ConCaption::ConCaption(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno),
      Caption(*this, Aspecto::Caption, std::move(caption)) {}

std::optional<Valor> ConCaption::Leer(Aspecto aspecto) const {
  return aspecto == Aspecto::Caption ? Valor(Caption()) : Widget::Leer(aspecto);
}

Label::Label(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno)
    : ConCaption(sitio, std::move(nombre), std::move(caption), diseno),
      conTeclado_(diseno.Teclado) {}

CheckBox::CheckBox(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno)
    : ConCaption(sitio, std::move(nombre), std::move(caption), diseno) {}

std::optional<Valor> CheckBox::Leer(Aspecto aspecto) const {
  return aspecto == Aspecto::Value ? Valor(Value()) : ConCaption::Leer(aspecto);
}

void CheckBox::Cambiada(Aspecto aspecto) {
  Widget::Cambiada(aspecto);
  if (aspecto == Aspecto::Value) Disparar(Click);
}

OptionButton::OptionButton(Sitio sitio, std::string nombre, std::string caption,
                           const Diseno& diseno)
    : ConCaption(sitio, std::move(nombre), std::move(caption), diseno) {}

std::optional<Valor> OptionButton::Leer(Aspecto aspecto) const {
  return aspecto == Aspecto::Value ? Valor(Value()) : ConCaption::Leer(aspecto);
}

void OptionButton::Cambiada(Aspecto aspecto) {
  const bool encendida = aspecto == Aspecto::Value && Value;
  if (encendida) ApagarLasDemas();
  Widget::Cambiada(aspecto);
  if (encendida) Disparar(Click);
}

void OptionButton::ApagarLasDemas() {
  for (Widget* w : Formulario().Widgets()) {
    auto* otra = dynamic_cast<OptionButton*>(w);
    if (!otra || otra == this || otra->Contenedor() != Contenedor()) continue;
    otra->Value.PonerEnSilencio(false);
  }
}

std::vector<OptionButton*> OptionButton::Grupo() const {
  std::vector<OptionButton*> grupo;
  for (Widget* w : Formulario().Widgets()) {
    auto* opcion = dynamic_cast<OptionButton*>(w);
    if (!opcion || opcion->Contenedor() != Contenedor() || !opcion->Alcanzable()) continue;
    grupo.push_back(opcion);
  }
  std::stable_sort(grupo.begin(), grupo.end(), [](const OptionButton* a, const OptionButton* b) {
    return a->TabIndex() < b->TabIndex();
  });
  return grupo;
}

ComboBox::ComboBox(Sitio sitio, std::string nombre, std::vector<std::string> elementos,
                   const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno), elementos_(std::move(elementos)) {
  BackColor.PonerEnSilencio(color::Blanco);
  ForeColor.PonerEnSilencio(color::Negro);
}

void ComboBox::AddItem(std::string texto) {
  elementos_.push_back(std::move(texto));
  Widget::Cambiada(Aspecto::Elementos);
}

void ComboBox::Clear() {
  elementos_.clear();
  ListIndex.PonerEnSilencio(-1);
  Text.PonerEnSilencio("");
  Widget::Cambiada(Aspecto::Elementos);
}

std::optional<Valor> ComboBox::Leer(Aspecto aspecto) const {
  if (aspecto == Aspecto::Text) return Text();
  if (aspecto == Aspecto::ListIndex) return ListIndex();
  return Widget::Leer(aspecto);
}

void ComboBox::Cambiada(Aspecto aspecto) {
  if (aspecto == Aspecto::Text) {
    const auto donde = std::find(elementos_.begin(), elementos_.end(), Text());
    if (donde == elementos_.end() && !Text->empty()) {
      const std::string rechazado = Text;
      Text.PonerEnSilencio(ListIndex < 0 ? "" : elementos_[static_cast<std::size_t>(ListIndex())]);
      throw ErrorEjecucion(error::ArgumentoNoValido, "La lista no tiene \"" + rechazado + "\"");
    }
    const int elegido =
        donde == elementos_.end() ? -1 : static_cast<int>(donde - elementos_.begin());
    if (!ListIndex.PonerEnSilencio(elegido)) return;
  } else if (aspecto == Aspecto::ListIndex) {
    if (ListIndex < -1 || ListIndex >= static_cast<int>(elementos_.size())) {
      const auto donde = std::find(elementos_.begin(), elementos_.end(), Text());
      ListIndex.PonerEnSilencio(
          donde == elementos_.end() ? -1 : static_cast<int>(donde - elementos_.begin()));
      throw ErrorEjecucion(error::ArgumentoNoValido, "La lista no tiene ese elemento");
    }
    Text.PonerEnSilencio(ListIndex < 0 ? "" : elementos_[static_cast<std::size_t>(ListIndex())]);
  } else {
    Widget::Cambiada(aspecto);
    return;
  }
  Widget::Cambiada(Aspecto::ListIndex);
  Disparar(Click);
}

Pulsador::Pulsador(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno)
    : ConCaption(sitio, std::move(nombre), std::move(caption), diseno) {}

Cintilla::Cintilla(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno)
    : ConCaption(sitio, std::move(nombre), std::move(caption), diseno) {}

Cintilla* BarraDe(const Form& form) {
  for (Widget* widget : form.Widgets()) {
    if (auto* barra = dynamic_cast<Cintilla*>(widget)) return barra;
  }
  return nullptr;
}

Image::Image(Sitio sitio, std::string nombre, std::string imagen, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno),
      Picture(*this, Aspecto::Picture, std::move(imagen)) {}

Shape::Shape(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno) {}

Line::Line(Sitio sitio, std::string nombre, int x1, int y1, int x2, int y2)
    : Widget(sitio, std::move(nombre), {}),
      X1(*this, Aspecto::Geometria, x1),
      Y1(*this, Aspecto::Geometria, y1),
      X2(*this, Aspecto::Geometria, x2),
      Y2(*this, Aspecto::Geometria, y2) {}

VScrollBar::VScrollBar(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno) {}

std::optional<Valor> VScrollBar::Leer(Aspecto aspecto) const {
  if (aspecto == Aspecto::Value) return Value();
  if (aspecto == Aspecto::Min) return Min();
  if (aspecto == Aspecto::Max) return Max();
  return Widget::Leer(aspecto);
}

void VScrollBar::Cambiada(Aspecto aspecto) {
  if (aspecto == Aspecto::Min || aspecto == Aspecto::Max) {
    Widget::Cambiada(aspecto);
    Value = std::clamp(Value(), std::min(Min(), Max()), std::max(Min(), Max()));
    return;
  }
  if (aspecto == Aspecto::Value) {
    Value.PonerEnSilencio(std::clamp(Value(), std::min(Min(), Max()), std::max(Min(), Max())));
    if (std::exchange(mostrado_, Value()) == Value) return;
  }
  Widget::Cambiada(aspecto);
  if (aspecto == Aspecto::Value) Disparar(Change);
}

ProgressBar::ProgressBar(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno) {}

std::optional<Valor> ProgressBar::Leer(Aspecto aspecto) const {
  if (aspecto == Aspecto::Value) return Value();
  if (aspecto == Aspecto::Min) return Min();
  if (aspecto == Aspecto::Max) return Max();
  return Widget::Leer(aspecto);
}

}  // namespace services
