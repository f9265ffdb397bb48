#include "qt/dibujos.h"

#include <QPainterPath>
#include <algorithm>

// Drawings are made of lines on a square of 16 by 16, so that they are sharp at any scale.

namespace qt {
namespace {

constexpr double kLado = 16;
constexpr double kGrueso = 2.2;
constexpr double kFino = 1.2;
constexpr double kMaximo = 2.4;  // pixels, where the drawing is large
constexpr double kTenue = 0.5;

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

void Pantalla(QPainter& pintor) {
  pintor.drawRoundedRect(QRectF(1.5, 2, 13, 9), 0.8, 0.8);
  pintor.drawLine(QPointF(8, 11), QPointF(8, 14));
  pintor.drawLine(QPointF(4.5, 14), QPointF(11.5, 14));
}

void Izquierda(QPainter& pintor) {
  pintor.drawPolyline(QPolygonF({{10.5, 3}, {5.5, 8}, {10.5, 13}}));
}

void Derecha(QPainter& pintor) {
  pintor.drawPolyline(QPolygonF({{5.5, 3}, {10.5, 8}, {5.5, 13}}));
}

struct Dibujo {
  const char* Nombre;
  void (*Trazar)(QPainter&);
  double Grosor;
};

constexpr Dibujo kDibujos[] = {{"check", &Marca, kGrueso},
                               {"impresora", &Impresora, kFino},
                               {"pantalla", &Pantalla, kFino},
                               {"izquierda", &Izquierda, kGrueso},
                               {"derecha", &Derecha, kGrueso}};

}  // namespace

void Dibujar(QPainter& pintor, const QRectF& donde, const QString& nombre, const QColor& color) {
  const QStringList partes = nombre.split(QLatin1Char(' '));
  const auto* const dibujo =
      std::find_if(std::begin(kDibujos), std::end(kDibujos),
                   [&](const Dibujo& uno) { return partes.front() == QLatin1String(uno.Nombre); });
  if (dibujo == std::end(kDibujos)) return;
  const double escala = std::min(donde.width(), donde.height()) / kLado;
  pintor.save();
  pintor.setRenderHint(QPainter::Antialiasing);
  if (partes.back() == QLatin1String("tenue")) pintor.setOpacity(pintor.opacity() * kTenue);
  pintor.translate(donde.center() - QPointF(kLado, kLado) * escala / 2);
  pintor.scale(escala, escala);
  const double grosor = std::min(dibujo->Grosor, std::max(0.6, kMaximo / escala));
  pintor.setPen(QPen(color, grosor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  pintor.setBrush(Qt::NoBrush);
  dibujo->Trazar(pintor);
  pintor.restore();
}

}  // namespace qt
