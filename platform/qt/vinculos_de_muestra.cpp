#include "qt/vinculos_de_muestra.h"

#include <QMouseEvent>
#include <QShortcut>
#include <algorithm>

#include "forms/entrada.h"
#include "qt/lienzo.h"
#include "qt/textos_qt.h"

namespace qt {

using services::Aspecto;

VinculoEtiqueta::VinculoEtiqueta(services::Label& modelo, QLabel& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.setTextFormat(Qt::PlainText);
}

void VinculoEtiqueta::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().setText(Texto(Modelo().Caption()));
  if (aspecto == Aspecto::BackColor) Vista().setAutoFillBackground(Modelo().BackColor >= 0);
}

bool VinculoEtiqueta::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() == QEvent::MouseButtonPress && Atento()) {
    if (static_cast<QMouseEvent*>(evento)->button() == Qt::LeftButton) Pulsar();
  }
  return VinculoDe::eventFilter(objeto, evento);
}

VinculoCintilla::VinculoCintilla(services::Cintilla& modelo, CintillaQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.AlCerrar = [this] {
    if (Atento()) services::entrada::CerrarBarra(Modelo());
  };
}

void VinculoCintilla::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().PonerTitulo(Texto(Modelo().Caption()));
}

VinculoImagen::VinculoImagen(services::Image& modelo, ImagenQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.AlPulsar = [this] { Pulsar(); };
  const QVariant atajo = vista.property("atajo");
  if (!atajo.isValid()) return;
  // What takes no focus is reached by a key of its own.
  auto* tecla = new QShortcut(QKeySequence(atajo.toString()), &lienzo, nullptr, nullptr,
                              Qt::WidgetWithChildrenShortcut);
  connect(tecla, &QShortcut::activated, this, [this] { Pulsar(); });
}

void VinculoImagen::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Picture) Vista().PonerDibujo(Texto(Modelo().Picture()));
}

void VinculoProgreso::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Min || aspecto == Aspecto::Max) {
    Vista().setRange(Modelo().Min, std::max(Modelo().Min(), Modelo().Max()));
  }
  if (aspecto != Aspecto::Value) return;
  Vista().setValue(Modelo().Value);
  // The work that it tells of goes on without coming back to the toolkit.
  if (Vista().isVisible()) Vista().parentWidget()->repaint();
}

}  // namespace qt
