#include "qt/marco_con_foco.h"

#include <QApplication>
#include <QPainter>

namespace qt {

MarcoConFoco::MarcoConFoco(QWidget* padre) : QFrame(padre) {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* antes, QWidget* ahora) {
    if (Contiene(antes) != Contiene(ahora)) update();
  });
}

bool MarcoConFoco::Contiene(const QWidget* foco) const {
  return foco && isAncestorOf(foco);
}

void MarcoConFoco::paintEvent(QPaintEvent* evento) {
  QFrame::paintEvent(evento);
  if (!Contiene(QApplication::focusWidget())) return;
  QPainter pintor(this);
  pintor.setRenderHint(QPainter::Antialiasing);
  pintor.setPen(QPen(palette().color(QPalette::Highlight), 2));
  pintor.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace qt
