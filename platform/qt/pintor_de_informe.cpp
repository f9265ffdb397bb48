#include "qt/pintor_de_informe.h"

#include <QPainter>

#include "qt/estampa.h"
#include "qt/letra_de_informe.h"
#include "qt/textos_qt.h"

namespace qt {
namespace {

using services::Trazo;

/// As wide on every target: a hair on paper. On the screen it is a pixel at the least, or the frame
/// of a small page would fade away.
constexpr double kGrosor = 0.02 * kTwipsPorCentimetro;

constexpr QRgb kGrisDePapel = 0xFFE6E6E6;

/// A negative colour is one of the desktop's, which paper doesn't have.
QColor ColorDe(const Trazo& trazo) {
  const int color = trazo.Color;
  if (color < 0) return trazo.Llena ? QColor(kGrisDePapel) : QColor(Qt::black);
  return QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

double ATwips(double centimetros) {
  return centimetros * kTwipsPorCentimetro;
}

QPointF Origen(const Trazo& trazo) {
  return {ATwips(trazo.X1), ATwips(trazo.Y1)};
}

QPointF Final(const Trazo& trazo) {
  return {ATwips(trazo.X2), ATwips(trazo.Y2)};
}

void PonerPluma(QPainter& pintor, const QColor& color) {
  pintor.setBrush(Qt::NoBrush);
  QPen pluma(color, kGrosor, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
  if (kGrosor * pintor.deviceTransform().m11() < 1) {
    pluma.setCosmetic(true);
    pluma.setWidthF(1);
  }
  pintor.setPen(pluma);
}

void PintarTexto(QPainter& pintor, const Trazo& trazo) {
  const MedidasQt& medidas = MedidasDeInforme();
  const QPointF origen = Origen(trazo);
  if (trazo.Opaco) {
    const QSizeF hueco(ATwips(medidas.Ancho(trazo.Letra, trazo.Texto)),
                       ATwips(medidas.Alto(trazo.Letra)));
    pintor.fillRect(QRectF(origen, hueco), Qt::white);
  }
  const QFont fuente = FuenteDeInforme(trazo.Letra);
  if (pintor.font() != fuente) pintor.setFont(fuente);
  pintor.setPen(ColorDe(trazo));
  pintor.drawText(origen + QPointF(0, ATwips(medidas.Ascenso(trazo.Letra))), Texto(trazo.Texto));
}

void PintarCaja(QPainter& pintor, const Trazo& trazo) {
  const QRectF caja = QRectF(Origen(trazo), Final(trazo)).normalized();
  if (trazo.Llena) return pintor.fillRect(caja, ColorDe(trazo));
  PonerPluma(pintor, ColorDe(trazo));
  pintor.drawRect(caja);
}

void PintarLinea(QPainter& pintor, const Trazo& trazo) {
  PonerPluma(pintor, ColorDe(trazo));
  pintor.drawLine(Origen(trazo), Final(trazo));
}

void PintarImagen(QPainter& pintor, const Trazo& trazo) {
  const Estampa estampa = EstampaDe(trazo.Texto);
  if (estampa.Imagen.isNull()) return;
  pintor.drawImage(QRectF(Origen(trazo), estampa.Twips), estampa.Imagen);
}

}  // namespace

QRectF HojaEnTwips() {
  return {0, 0, ATwips(services::DestinoInforme::kAncho), ATwips(services::DestinoInforme::kAlto)};
}

void Pintar(QPainter& pintor, const Trazo& trazo) {
  constexpr auto kNitido =
      QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform;
  if ((pintor.renderHints() & kNitido) != kNitido) pintor.setRenderHints(kNitido);
  switch (trazo.Que) {
    case Trazo::Clase::Texto:
      return PintarTexto(pintor, trazo);
    case Trazo::Clase::Linea:
      return PintarLinea(pintor, trazo);
    case Trazo::Clase::Caja:
      return PintarCaja(pintor, trazo);
    case Trazo::Clase::Imagen:
      return PintarImagen(pintor, trazo);
  }
}

void Pintar(QPainter& pintor, const services::LaminaInforme& lamina) {
  for (const Trazo& trazo : lamina.Trazos) Pintar(pintor, trazo);
}

}  // namespace qt
