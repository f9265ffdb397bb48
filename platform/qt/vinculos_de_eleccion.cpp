#include "qt/vinculos_de_eleccion.h"

#include <QKeyEvent>
#include <algorithm>

#include "forms/entrada.h"
#include "qt/lienzo.h"
#include "qt/teclas_qt.h"
#include "qt/textos_qt.h"

namespace qt {

using services::Aspecto;

VinculoCasilla::VinculoCasilla(services::CheckBox& modelo, QCheckBox& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  connect(&vista, &QCheckBox::toggled, this, [this] { Pulsar(); });
}

void VinculoCasilla::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().setText(Rotulo(Modelo().Caption()));
  if (aspecto == Aspecto::Value) Vista().setChecked(Modelo().Value);
}

VinculoOpcion::VinculoOpcion(services::OptionButton& modelo, OpcionQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  connect(&vista, &OpcionQt::clicked, this, [this] { Pulsar(); });
  connect(&vista, &OpcionQt::toggled, this, [this](bool encendida) { TomarValor(encendida); });
}

void VinculoOpcion::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().setText(Rotulo(Modelo().Caption()));
  if (aspecto == Aspecto::Value) Vista().Poner(Modelo().Value);
}

/// A screen reader turns it on without a click, and the toolkit then turns off another of the
/// group, which is for the model to say.
void VinculoOpcion::TomarValor(bool encendida) {
  if (!Atento()) return;
  encendida ? Pulsar() : Mostrar(Aspecto::Value);
}

VinculoPulsador::VinculoPulsador(services::Pulsador& modelo, QPushButton& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.setAutoDefault(false);
  connect(&vista, &QPushButton::clicked, this, [this] { Pulsar(); });
}

void VinculoPulsador::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().setText(Rotulo(Modelo().Caption()));
}

VinculoLista::VinculoLista(services::ComboBox& modelo, QComboBox& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  connect(&vista, &QComboBox::activated, this, [this](int elemento) {
    if (!Atento()) return;
    services::entrada::Elegir(Modelo(), elemento);
    if (!Suelto()) Mostrar(Aspecto::ListIndex);
  });
}

void VinculoLista::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Elementos) {
    Vista().clear();
    for (const std::string& elemento : Modelo().Elementos()) Vista().addItem(Texto(elemento));
  }
  if (aspecto == Aspecto::Elementos || aspecto == Aspecto::ListIndex) {
    Vista().setCurrentIndex(Modelo().ListIndex);
  }
}

bool VinculoLista::eventFilter(QObject* objeto, QEvent* evento) {
  if (Suelto()) return VinculoDe::eventFilter(objeto, evento);
  if (evento->type() == QEvent::Wheel) {
    // Rolling past a list must not change it.
    evento->ignore();
    return true;
  }
  if (evento->type() == QEvent::MouseButtonPress) {
    services::entrada::Enfocar(Modelo());
    return Suelto() || !Modelo().TieneFoco();
  }
  return VinculoDe::eventFilter(objeto, evento);
}

bool VinculoLista::PulsarTecla(QKeyEvent& evento) {
  const bool alt = (evento.modifiers() & Qt::AltModifier) != 0;
  const bool vertical = evento.key() == Qt::Key_Down || evento.key() == Qt::Key_Up;
  if (evento.key() == Qt::Key_F4 || (alt && vertical)) {
    Vista().showPopup();
    return true;
  }
  return VinculoDe::PulsarTecla(evento);
}

VinculoBarra::VinculoBarra(services::VScrollBar& modelo, QScrollBar& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  connect(&vista, &QScrollBar::valueChanged, this, [this](int valor) {
    if (!Atento()) return;
    services::entrada::Mover(Modelo(), valor);
    if (!Suelto()) Mostrar(Aspecto::Value);
  });
}

void VinculoBarra::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Min || aspecto == Aspecto::Max) {
    Vista().setRange(Modelo().Min, std::max(Modelo().Min(), Modelo().Max()));
  }
  if (aspecto == Aspecto::Value) Vista().setValue(Modelo().Value);
}

/// Its own keys move it, and tell the model by doing so.
bool VinculoBarra::PulsarTecla(QKeyEvent& evento) {
  switch (evento.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      return false;
    default:
      return VinculoDe::PulsarTecla(evento);
  }
}

}  // namespace qt
