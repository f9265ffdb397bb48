#include "qt/panel_qt.h"

#include <QApplication>
#include <QBoxLayout>
#include <QScrollBar>
#include <QVariant>

#include "qt/medidas.h"

namespace qt {

PanelQt::PanelQt(QWidget* padre) : QScrollArea(padre) {
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* ahora) {
    if (ahora && widget() && widget()->isAncestorOf(ahora)) TraerALaVista(*ahora);
  });
}

/// What is wider than the room shows from its beginning.
void PanelQt::TraerALaVista(QWidget& vista) {
  const int izquierda = vista.mapTo(widget(), QPoint()).x();
  const int ancho = viewport()->width();
  ensureWidgetVisible(&vista);
  if (vista.width() > ancho) horizontalScrollBar()->setValue(izquierda);
}

QSize PanelQt::sizeHint() const {
  const int marco = 2 * frameWidth();
  return (widget() ? widget()->sizeHint() : QSize()) + QSize(marco, marco);
}

void PanelQt::Partir(bool partido) {
  for (QBoxLayout* fila : widget()->findChildren<QBoxLayout*>()) {
    if (!fila->property("partible").toBool()) continue;
    fila->setDirection(partido ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  }
  OlvidarMedidas(*widget());
}

QSize PanelQt::Caber(const QSize& hueco) {
  if (!widget() || !widget()->layout()) return sizeHint().boundedTo(hueco);
  const int marco = 2 * frameWidth();
  Partir(false);
  const QSize entera = widget()->minimumSizeHint() + QSize(marco, marco);
  // The bar that a panel too high gets takes room of its rows.
  const int barra = entera.height() > hueco.height() ? verticalScrollBar()->sizeHint().width() : 0;
  if (entera.width() + barra > hueco.width()) Partir(true);
  QSize medida = sizeHint();
  if (medida.height() > hueco.height()) {
    medida.rwidth() += verticalScrollBar()->sizeHint().width();
  }
  return medida.boundedTo(hueco);
}

}  // namespace qt
