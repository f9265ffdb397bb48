#include "qt/suelo_qt.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QScrollBar>
#include <QVariant>
#include <QWheelEvent>

#include "forms/iform.h"
#include "qt/medidas.h"

namespace qt {

namespace {

constexpr double kTwipsDeLinea = 180;
constexpr const char* kSeMuestra = "seMuestra";

}  // namespace

SueloQt::SueloQt(QWidget* padre) : QFrame(padre), linea_(QFontMetrics(Fuente(0, false)).height()) {}

bool SueloQt::AEscala() const {
  return property("aEscala").toBool();
}

QPoint SueloQt::Origen() const {
  return AEscala() ? mapTo(window(), QPoint()) * services::kTwips
                   : property("origenTwips").toPoint();
}

int SueloQt::Pixeles(int twips) const {
  return qRound(AEscala() ? double(twips) / services::kTwips : twips * linea_ / kTwipsDeLinea);
}

void SueloQt::Colocar(QWidget& vista, const QRect& twips) {
  const int holgura = vista.property("holguraTwips").toInt();
  const QRect lugar = twips.translated(-Origen()).adjusted(0, -holgura, 0, holgura);
  // Each edge by itself: what lies side by side in the model leaves no gap here.
  const QPoint desde(Pixeles(lugar.x()), Pixeles(lugar.y()));
  const QPoint hasta(Pixeles(lugar.x() + lugar.width()), Pixeles(lugar.y() + lugar.height()));
  vista.setGeometry(QRect(desde, QSize(hasta.x() - desde.x(), hasta.y() - desde.y())));
  MostrarSiSeVe(vista);
}

void SueloQt::Mostrar(QWidget& vista, bool visible) {
  vista.setProperty(kSeMuestra, visible);
  MostrarSiSeVe(vista);
}

bool SueloQt::SeMuestra(const QWidget& vista) {
  const QVariant mostrada = vista.property(kSeMuestra);
  return mostrada.isValid() ? mostrada.toBool() : !vista.isHidden();
}

void SueloQt::MostrarSiSeVe(QWidget& vista) const {
  const QRect alaVista = parentWidget() ? parentWidget()->rect().translated(-pos()) : rect();
  vista.setVisible(SeMuestra(vista) && alaVista.intersects(vista.geometry()));
}

void SueloQt::MostrarLoQueSeVe() {
  for (QWidget* vista : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (vista->property(kSeMuestra).isValid()) MostrarSiSeVe(*vista);
    // Its window on what lies on that one in turn is another now.
    if (auto* suelo = dynamic_cast<SueloQt*>(vista)) suelo->MostrarLoQueSeVe();
  }
}

void SueloQt::moveEvent(QMoveEvent* evento) {
  QFrame::moveEvent(evento);
  MostrarLoQueSeVe();
}

void SueloQt::resizeEvent(QResizeEvent* evento) {
  QFrame::resizeEvent(evento);
  MostrarLoQueSeVe();
}

QSize SueloQt::sizeHint() const {
  const QSize medida = property("medidaTwips").toSize();
  return medida.isEmpty() ? QFrame::sizeHint()
                          : QSize(Pixeles(medida.width()), Pixeles(medida.height()));
}

void SueloQt::wheelEvent(QWheelEvent* evento) {
  auto* barra = window()->findChild<QScrollBar*>(property("barra").toString());
  const bool zoom = (evento->modifiers() & Qt::ControlModifier) != 0;
  if (!barra || zoom) return QFrame::wheelEvent(evento);
  QCoreApplication::sendEvent(barra, evento);
  evento->accept();
}

}  // namespace qt
