#include "qt/listado_qt.h"

#include <QPaintEvent>
#include <QPainter>

#include "forms/iform.h"
#include "qt/pintor_de_informe.h"
#include "services/destino_informe.h"

namespace qt {
namespace {

QRectF EnPixeles(const services::PictureBox::Pintada& pintada) {
  constexpr double kTwips = services::kTwips;
  return {pintada.X / kTwips, pintada.Y / kTwips, pintada.Ancho / kTwips, pintada.Alto / kTwips};
}

}  // namespace

void ListadoQt::Poner(const std::vector<services::PictureBox::Pintada>& pintadas) {
  pintadas_ = pintadas;
  setAccessibleName(pintadas_.empty() ? QString()
                                      : QString("Informe de %1 páginas").arg(pintadas_.size()));
  update();
}

void ListadoQt::paintEvent(QPaintEvent* evento) {
  QPainter pintor(this);
  for (const auto& pintada : pintadas_) {
    const QRectF lugar = EnPixeles(pintada);
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
