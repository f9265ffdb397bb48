#include <algorithm>
#include <array>

#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "guion/acciones.h"
#include "guion/ejecucion.h"
#include "valores/texto.h"

// What the host's menu and the user do. As on a real screen, nothing comes of working on what can't
// be reached: a widget hidden or disabled, a screen hidden or behind a modal one.

namespace guion {
namespace {

namespace entrada = services::entrada;
using services::Widget;

void Decir(Ejecucion& e, services::IClassTesvara& componente, services::HRESULT resultado) {
  if (!services::hr::Fallido(resultado) || e.Entorno().Mensajes.SinRespuesta()) return;
  const auto descrito =
      services::Ref<services::IClassTesvara>(&componente).Como<services::IDescripcionError>();
  if (!descrito) return e.Error(resultado, "");
  e.Error(descrito->Numero() != 0 ? descrito->Numero() : resultado, descrito->Descripcion());
}

void Cargar(Ejecucion& e, const Orden&) {
  services::IClassTesvara& componente = e.Mundo().Componente();
  Decir(e, componente, componente.Cargar(e.Mundo().DatosClase()));
}

void Ocultar(Ejecucion& e, const Orden&) {
  services::IClassTesvara& componente = e.Mundo().Componente();
  Decir(e, componente, componente.Ocultar());
}

void Cerrar(Ejecucion& e, const Orden&) {
  services::IClassTesvara& componente = e.Mundo().Componente();
  Decir(e, componente, componente.Cerrar());
}

bool AlAlcance(Ejecucion& e, const Widget& widget) {
  return e.Entorno().AlAlcance(widget.Formulario());
}

/// The widget that the keyboard goes to; null when there is none.
Widget* ConTeclado(Ejecucion& e) {
  Widget* foco = e.Entorno().Foco();
  return foco && AlAlcance(e, *foco) ? foco : nullptr;
}

/// Types a text. Each key goes to the widget that has the focus at that moment, so what is left
/// after a handler moved the focus lands where it went.
void PulsarTeclas(Ejecucion& e, const std::string& texto) {
  for (const char32_t caracter : Caracteres(texto)) {
    Widget* donde = ConTeclado(e);
    if (!donde) return;
    if (caracter == U'\n') {
      entrada::Tecla(*donde, services::tecla::Intro);
    } else {
      entrada::Escribir(*donde, caracter);
    }
  }
}

void Foco(Ejecucion& e, const Orden& o) {
  Widget& widget = e.Buscar(o.Texto(0));
  if (AlAlcance(e, widget)) entrada::Enfocar(widget);
}

/// Nothing is typed when the focus doesn't arrive at the widget.
void Teclear(Ejecucion& e, const Orden& o) {
  Foco(e, o);
  Widget* foco = ConTeclado(e);
  if (!foco || foco != &e.Buscar(o.Texto(0))) return;
  if (auto* caja = dynamic_cast<services::TextBox*>(foco)) {
    entrada::Seleccionar(*caja, 0, static_cast<int>(services::Longitud(caja->Text())));
  }
  if (o.Texto(1).empty()) entrada::Tecla(*foco, services::tecla::Borrar);
  PulsarTeclas(e, o.Texto(1));
}

void Anadir(Ejecucion& e, const Orden& o) {
  if (auto* caja = dynamic_cast<services::TextBox*>(ConTeclado(e))) {
    entrada::Seleccionar(*caja, static_cast<int>(services::Longitud(caja->Text())), 0);
  }
  PulsarTeclas(e, o.Texto(0));
}

/// Tab and Escape mean something to a screen of which no widget has the focus.
void TeclaSinFoco(services::Form& form, int codigo) {
  if (codigo == services::tecla::Tabulador) entrada::Tabular(form, false);
  if (codigo == services::tecla::Escape) entrada::Cancelar(form);
}

void Tecla(Ejecucion& e, const Orden& o) {
  const int codigo = CodigoDeTecla(o.Texto(0)).value();
  if (Widget* foco = ConTeclado(e)) return entrada::Tecla(*foco, codigo);
  const std::vector<services::Form*> pantallas = e.Entorno().Pantallas();
  const auto alFrente =
      std::find_if(pantallas.rbegin(), pantallas.rend(),
                   [&](const services::Form* form) { return e.Entorno().AlAlcance(*form); });
  if (!e.Entorno().Foco() && alFrente != pantallas.rend()) TeclaSinFoco(**alFrente, codigo);
}

void Pulsar(Ejecucion& e, const Orden& o) {
  Widget& widget = e.Buscar(o.Texto(0));
  if (AlAlcance(e, widget)) entrada::Pulsar(widget);
}

void Elegir(Ejecucion& e, const Orden& o) {
  auto& lista = e.Buscar<services::ComboBox>(o.Texto(0), "una lista");
  const auto& elementos = lista.Elementos();
  const auto donde = std::find(elementos.begin(), elementos.end(), o.Texto(1));
  if (donde == elementos.end()) {
    throw NoSeEntiende("la lista " + o.Texto(0) + " no tiene \"" + o.Texto(1) + "\"");
  }
  if (AlAlcance(e, lista)) entrada::Elegir(lista, static_cast<int>(donde - elementos.begin()));
}

services::MSFlexGrid& RejillaConCelda(Ejecucion& e, const Orden& o) {
  auto& rejilla = e.Buscar<services::MSFlexGrid>(o.Texto(0), "una rejilla");
  if (o.Entero(1) >= rejilla.Rows || o.Entero(2) >= rejilla.Cols()) {
    throw NoSeEntiende(o.Texto(0) + " no tiene la celda " + o.Texto(1) + " " + o.Texto(2));
  }
  return rejilla;
}

void Celda(Ejecucion& e, const Orden& o) {
  services::MSFlexGrid& rejilla = RejillaConCelda(e, o);
  if (AlAlcance(e, rejilla)) entrada::PulsarCelda(rejilla, o.Entero(1), o.Entero(2));
}

void Doble(Ejecucion& e, const Orden& o) {
  services::MSFlexGrid& rejilla = RejillaConCelda(e, o);
  if (AlAlcance(e, rejilla)) entrada::DoblePulsarCelda(rejilla, o.Entero(1), o.Entero(2));
}

void ValorDeBarra(Ejecucion& e, const Orden& o) {
  auto& barra = e.Buscar<services::VScrollBar>(o.Texto(0), "una barra de desplazamiento");
  if (AlAlcance(e, barra)) entrada::Mover(barra, o.Entero(1));
}

void Barra(Ejecucion& e, const Orden& o) {
  services::Form& form = e.BuscarPantalla(o.Texto(0));
  auto* barra = dynamic_cast<services::Cintilla*>(form.Buscar("Barra1"));
  if (!barra) throw NoSeEntiende(o.Texto(0) + " no tiene Barra1");
  if (AlAlcance(e, *barra)) entrada::CerrarBarra(*barra);
}

constexpr std::array kAcciones{
    Accion{"cargar", Cargar, true},   Accion{"ocultar", Ocultar, true},
    Accion{"cerrar", Cerrar, true},   Accion{"foco", Foco, true},
    Accion{"teclear", Teclear, true}, Accion{"anadir", Anadir, true},
    Accion{"tecla", Tecla, true},     Accion{"pulsar", Pulsar, true},
    Accion{"elegir", Elegir, true},   Accion{"celda", Celda, true},
    Accion{"doble", Doble, true},     Accion{"valor", ValorDeBarra, true},
    Accion{"barra", Barra, true},
};

}  // namespace

std::span<const Accion> AccionesDelUsuario() {
  return kAcciones;
}

}  // namespace guion
