#include "qt/centrado.h"

#include <QVariant>
#include <QWidget>

#include "qt/panel_qt.h"

namespace qt {
namespace {

/// What a panel takes of so much room.
QSize MedidaEn(const QSize& hueco, QWidget& panel) {
  if (auto* plegable = dynamic_cast<PanelQt*>(&panel)) return plegable->Caber(hueco);
  return panel.sizeHint().expandedTo(panel.minimumSize()).boundedTo(hueco);
}

QRect LugarDe(QWidget& panel, const QRect& pantalla, int bajoLaBarra) {
  QRect lugar(QPoint(), MedidaEn(pantalla.size(), panel));
  lugar.translate(pantalla.center() - lugar.center());
  if (lugar.top() >= bajoLaBarra) return lugar;
  const bool entero = lugar.height() < pantalla.height();
  lugar.moveTop(0);
  if (entero && lugar.height() > pantalla.height() - bajoLaBarra) return lugar;
  lugar.setSize(MedidaEn(pantalla.size() - QSize(0, bajoLaBarra), panel));
  lugar.moveCenter({pantalla.center().x(), 0});
  lugar.moveTop(bajoLaBarra);
  return lugar;
}

}  // namespace

void CentrarPaneles(QWidget& pantalla, int bajoLaBarra) {
  for (QWidget* panel : pantalla.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!panel->property("centrado").toBool()) continue;
    panel->raise();
    panel->setGeometry(LugarDe(*panel, pantalla.rect(), bajoLaBarra));
  }
}

}  // namespace qt
