#include "qt/dibujos.h"

#include <QPainterPath>
#include <algorithm>

// Drawings are made of lines on a square of 16 by 16, so that they are sharp at any scale.

namespace qt {
namespace {

constexpr double kLado = 16;

void Marca(QPainter& pintor) {
  QPainterPath trazo(QPointF(3, 8.5));
  trazo.lineTo(6.5, 12);
  trazo.lineTo(13, 4.5);
  pintor.drawPath(trazo);
}

void Impresora(QPainter& pintor) {
  pintor.drawPolyline(QPolygonF({{4, 6}, {4, 1.5}, {12, 1.5}, {12, 6}}));
  pintor.drawPolyline(QPolygonF({{4, 12}, {1.5, 12}, {1.5, 6}, {14.5, 6}, {14.5, 12}, {12, 12}}));
  pintor.drawRect(QRectF(4, 9.5, 8, 5));
  pintor.drawLine(QPointF(6, 12), QPointF(10, 12));
  pintor.drawPoint(QPointF(12.3, 8));
}

}  // namespace

void Dibujar(QPainter& pintor, const QRectF& donde, const QString& nombre, const QColor& color) {
  const double lado = std::min(donde.width(), donde.height());
  pintor.save();
  pintor.setRenderHint(QPainter::Antialiasing);
  pintor.translate(donde.center() - QPointF(lado / 2, lado / 2));
  pintor.scale(lado / kLado, lado / kLado);
  const bool marca = nombre == QLatin1String("check");
  pintor.setPen(QPen(color, marca ? 2.2 : 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  pintor.setBrush(Qt::NoBrush);
  if (marca) Marca(pintor);
  if (nombre == QLatin1String("impresora")) Impresora(pintor);
  pintor.restore();
}

}  // namespace qt
