#include "largo/usuario.h"

#include <algorithm>

#include "forms/controles.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "guion/ejecucion.h"
#include "guion/gramatica.h"
#include "guion/salida.h"

namespace largo {
namespace {

using services::Form;
using services::Widget;

bool EnVista(const Form& form, const guion::Orden& orden) {
  const auto partes = guion::LeerReferencia(orden.Texto(0)).value();
  const std::string pantalla = partes.Pantalla.empty() ? "FrmTesvaraGastos" : partes.Pantalla;
  const Widget* widget = form.Nombre() == pantalla ? form.Buscar(partes.Widget) : nullptr;
  if (!widget || !widget->Alcanzable()) return false;
  const auto* rejilla = dynamic_cast<const services::MSFlexGrid*>(widget);
  if (!rejilla || orden.Argumentos.size() < 3) return true;
  return orden.Entero(1) < rejilla->Rows && orden.Entero(2) < rejilla->Cols();
}

}  // namespace

Form* Usuario::AlFrente() const {
  const std::vector<Form*> pantallas = entorno_.Pantallas();
  const auto form = std::find_if(pantallas.rbegin(), pantallas.rend(),
                                 [&](const Form* una) { return entorno_.AlAlcance(*una); });
  return form == pantallas.rend() ? nullptr : *form;
}

std::vector<Widget*> Usuario::Alcanzables() const {
  std::vector<Widget*> widgets;
  if (const Form* form = AlFrente()) {
    std::ranges::copy_if(form->Widgets(), std::back_inserter(widgets),
                         [](const Widget* widget) { return widget->Alcanzable(); });
  }
  return widgets;
}

/// A command about a widget needs it on sight; some are always possible.
bool Usuario::Posible(const std::string& orden) const {
  const guion::Orden leida = guion::Analizar(orden).at(0);
  const auto es = [&leida](std::initializer_list<std::string_view> nombres) {
    return std::ranges::find(nombres, leida.Nombre) != nombres.end();
  };
  if (es({"cargar", "fallo", "concepto", "impresora"})) return true;
  const Form* form = AlFrente();
  if (!form) return false;
  if (es({"ocultar", "cerrar"})) return true;
  if (es({"datos"})) return form->Nombre() == kPrincipal;
  if (es({"tecla"})) return entorno_.Foco();
  if (es({"barra"})) return form->Nombre() == leida.Texto(0) && form->Buscar("Barra1");
  return EnVista(*form, leida);
}

std::string Usuario::Siguiente() {
  for (;;) {
    if (azar_.DeCada100(12)) return Cualquiera();
    if (plan_.empty()) Planear();
    const std::string orden = plan_.front();
    plan_.pop_front();
    if (Posible(orden)) return orden;
  }
}

std::string Usuario::SalirDeModal() {
  plan_.clear();
  const Form* form = AlFrente();
  if (!form) return "cargar";
  if (form->Buscar("Barra1") && azar_.DeCada100(70)) return "barra " + form->Nombre();
  return azar_.DeCada100(50) ? "tecla Escape" : Cualquiera();
}

std::string Usuario::Cualquiera() {
  if (azar_.DeCada100(25)) {
    return "tecla " + Uno({"Intro", "Escape", "Tab", "Borrar", "Suprimir", "Arriba", "Abajo",
                           "Izquierda", "Derecha", "Espacio"});
  }
  const std::vector<Widget*> widgets = Alcanzables();
  if (widgets.empty()) return "cargar";
  return Sobre(
      *widgets[static_cast<std::size_t>(azar_.Entre(0, static_cast<int>(widgets.size()) - 1))]);
}

std::string Usuario::Sobre(Widget& widget) {
  const std::string nombre = guion::Ejecucion::NombreDe(widget);
  if (dynamic_cast<services::TextBox*>(&widget)) {
    return azar_.DeCada100(20) ? "foco " + nombre
                               : "teclear " + nombre + " " + guion::Entrecomillar(Raro());
  }
  if (dynamic_cast<services::MSFlexGrid*>(&widget)) return SobreRejilla(nombre, widget);
  if (auto* lista = dynamic_cast<services::ComboBox*>(&widget)) {
    const auto& elementos = lista->Elementos();
    if (elementos.empty()) return "foco " + nombre;
    const int cual = azar_.Entre(0, static_cast<int>(elementos.size()) - 1);
    return "elegir " + nombre + " " +
           guion::Entrecomillar(elementos[static_cast<std::size_t>(cual)]);
  }
  if (dynamic_cast<services::VScrollBar*>(&widget)) {
    return "valor " + nombre + " " + std::to_string(azar_.Entre(-2, 40));
  }
  return "pulsar " + nombre;
}

std::string Usuario::SobreRejilla(const std::string& nombre, Widget& widget) {
  const auto& rejilla = dynamic_cast<services::MSFlexGrid&>(widget);
  return Uno({"celda ", "doble "}) + nombre + " " +
         std::to_string(azar_.Entre(0, rejilla.Rows - 1)) + " " +
         std::to_string(azar_.Entre(0, rejilla.Cols() - 1));
}

}  // namespace largo
