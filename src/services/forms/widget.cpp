#include "forms/widget.h"

#include <algorithm>

#include "forms/controles.h"
#include "forms/form.h"

namespace services {

Sitio::Sitio(PictureBox& panel) : Form(panel.Formulario()), Panel(&panel) {}

Widget::Widget(Sitio sitio, std::string nombre, const Diseno& diseno)
    : Enabled(*this, Aspecto::Enabled, diseno.Enabled),
      Visible(*this, Aspecto::Visible, diseno.Visible),
      Left(*this, Aspecto::Geometria, diseno.Left),
      Top(*this, Aspecto::Geometria, diseno.Top),
      Width(*this, Aspecto::Geometria, diseno.Width),
      Height(*this, Aspecto::Geometria, diseno.Height),
      FontSize(*this, Aspecto::Fuente, diseno.FontSize),
      FontBold(*this, Aspecto::Fuente, diseno.FontBold),
      TabIndex(*this, Aspecto::Enabled, diseno.TabIndex),
      form_(sitio.Form),
      nombre_(std::move(nombre)),
      contenedor_(sitio.Panel) {
  form_.widgets_.push_back(this);
}

Widget::~Widget() {
  form_.Escritorio().OlvidarFoco(*this);
  std::erase(form_.widgets_, this);
  if (form_.enfocado_ == this) form_.enfocado_ = nullptr;
}

std::string Widget::NombreCompleto() const {
  return indice_ < 0 ? nombre_ : nombre_ + "(" + std::to_string(indice_) + ")";
}

void Widget::SetFocus() {
  form_.Escritorio().DarFoco(*this);
}

bool Widget::TieneFoco() const {
  return form_.Escritorio().Foco() == this;
}

bool Widget::Alcanzable() const {
  if (!form_.Visible()) return false;
  for (const Widget* w = this; w; w = w->contenedor_) {
    if (!w->Visible || !w->Enabled) return false;
  }
  return true;
}

std::optional<Valor> Widget::Leer(Aspecto aspecto) const {
  switch (aspecto) {
    case Aspecto::Tag:
      return Tag();
    case Aspecto::Enabled:
      return Enabled();
    case Aspecto::Visible:
      return Visible();
    case Aspecto::BackColor:
      return TieneFondo() ? std::optional<Valor>(BackColor()) : std::nullopt;
    default:
      return std::nullopt;
  }
}

void Widget::Mostrar(Aspecto aspecto) {
  if (Ventana* vista = form_.Vista()) vista->Cambiada(*this, aspecto);
}

void Widget::Cambiada(Aspecto aspecto) {
  Mostrar(aspecto);
  if (aspecto != Aspecto::Enabled && aspecto != Aspecto::Visible) return;
  Escritorio& escritorio = form_.Escritorio();
  if (escritorio.Foco() && !escritorio.Foco()->Alcanzable()) escritorio.QuitarFoco();
}

}  // namespace services
