#include "qt/listado_qt.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "forms/iform.h"
#include "qt/pintor_de_informe.h"
#include "services/destino_informe.h"

namespace qt {
namespace {

/// Whole pixels, no further than the panel: the frame of a page is at its edge.
QRectF EnPixeles(const services::PictureBox::Pintada& pintada, const QSize& panel) {
  const auto pixeles = [](int twips) { return qRound(double(twips) / services::kTwips); };
  const int izquierda = pixeles(pintada.X);
  const int arriba = pixeles(pintada.Y);
  const int derecha = std::min(pixeles(pintada.X + pintada.Ancho), panel.width());
  const int abajo = std::min(pixeles(pintada.Y + pintada.Alto), panel.height());
  return QRect(izquierda, arriba, derecha - izquierda, abajo - arriba);
}

QString Anunciar(std::size_t paginas) {
  if (paginas == 0) return {};
  return paginas == 1 ? QStringLiteral("Informe de una página")
                      : QStringLiteral("Informe de %1 páginas").arg(paginas);
}

}  // namespace

void ListadoQt::Poner(const std::vector<services::PictureBox::Pintada>& pintadas) {
  pintadas_ = pintadas;
  setAccessibleName(Anunciar(pintadas_.size()));
  update();
}

void ListadoQt::paintEvent(QPaintEvent* evento) {
  QPainter pintor(this);
  for (const auto& pintada : pintadas_) {
    const QRectF lugar = EnPixeles(pintada, size());
    const auto* hoja = dynamic_cast<const services::LaminaInforme*>(pintada.Imagen.get());
    if (!hoja || !lugar.intersects(evento->rect())) continue;
    pintor.fillRect(lugar, Qt::white);
    pintor.save();
    pintor.setClipRect(lugar);
    pintor.translate(lugar.topLeft());
    pintor.scale(lugar.width() / HojaEnTwips().width(), lugar.height() / HojaEnTwips().height());
    Pintar(pintor, *hoja);
    pintor.restore();
  }
}

}  // namespace qt
