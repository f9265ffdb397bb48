#include "qt/imagen.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/dibujos.h"

namespace qt {
namespace {

constexpr double kTenue = 0.35;  // out of use

}  // namespace

ImagenQt::ImagenQt(QWidget* padre) : QWidget(padre) {
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ImagenQt::PonerDibujo(const QString& nombre) {
  dibujo_ = nombre;
  update();
}

void ImagenQt::PonerElegida(bool elegida) {
  if (std::exchange(elegida_, elegida) != elegida && AlElegirse) AlElegirse();
}

QSize ImagenQt::sizeHint() const {
  const int lado = fontMetrics().height() + 16;
  return {lado + 6, lado};
}

bool ImagenQt::event(QEvent* evento) {
  if (evento->type() == QEvent::HoverEnter || evento->type() == QEvent::HoverLeave) update();
  return QWidget::event(evento);
}

void ImagenQt::paintEvent(QPaintEvent*) {
  QPainter pintor(this);
  if (underMouse() && isEnabled()) {
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(palette().color(QPalette::Mid));
    pintor.setBrush(palette().color(apretada_ ? QPalette::Mid : QPalette::Midlight));
    pintor.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  }
  if (!isEnabled()) pintor.setOpacity(kTenue);
  Dibujar(pintor, QRectF(rect()).adjusted(4, 5, -4, -5), dibujo_,
          palette().color(QPalette::Active, QPalette::WindowText));
}

void ImagenQt::mousePressEvent(QMouseEvent* evento) {
  apretada_ = evento->button() == Qt::LeftButton;
  update();
}

void ImagenQt::mouseReleaseEvent(QMouseEvent* evento) {
  const bool pulsada = apretada_ && rect().contains(evento->position().toPoint());
  apretada_ = false;
  update();
  if (pulsada && AlPulsar) AlPulsar();
}

}  // namespace qt
