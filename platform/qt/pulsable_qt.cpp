#include "qt/pulsable_qt.h"

#include <QPainter>

namespace qt {

void PulsableQt::AnunciarMarca() {
  if (Marcada() == anunciada_) return;
  anunciada_ = !anunciada_;
  update();
  QAccessible::State que;
  que.checked = true;
  QAccessibleStateChangeEvent aviso(this, que);
  QAccessible::updateAccessibility(&aviso);
}

void PulsableQt::PintarFoco(QPainter& pintor, const QRectF& lugar) const {
  if (!hasFocus()) return;
  pintor.setRenderHint(QPainter::Antialiasing);
  pintor.setBrush(Qt::NoBrush);
  pintor.setPen(QPen(palette().color(QPalette::Highlight), 2));
  pintor.drawRoundedRect(lugar.adjusted(1, 1, -1, -1), 3, 3);
}

void PulsableQt::focusInEvent(QFocusEvent* evento) {
  QLabel::focusInEvent(evento);
  update();
}

void PulsableQt::focusOutEvent(QFocusEvent* evento) {
  QLabel::focusOutEvent(evento);
  update();
}

}  // namespace qt
