#include "qt/seleccion_qt.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include "qt/suelo_qt.h"

namespace qt {
namespace {

constexpr int kMargen = 8;
constexpr int kVeladura = 40;  // of 255

}  // namespace

void SeleccionQt::Unir(QWidget* marca, const QList<QLabel*>& rotulos) {
  marca_ = marca;
  if (marca) marca->installEventFilter(this);
  Recordar();
  rotulos_.clear();
  for (QLabel* rotulo : rotulos) rotulos_.append(rotulo);
}

bool SeleccionQt::Marcada() const {
  return marca_ && SueloQt::SeMuestra(*marca_);
}

QString SeleccionQt::Nombre() const {
  QStringList textos;
  for (const QPointer<QLabel>& rotulo : rotulos_) {
    const QString texto = rotulo ? rotulo->text().trimmed() : QString();
    if (!texto.isEmpty()) textos.append(texto);
  }
  return textos.join(QStringLiteral(", "));
}

bool SeleccionQt::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == marca_) AnunciarMarca();
  return PulsableQt::eventFilter(objeto, evento);
}

void SeleccionQt::paintEvent(QPaintEvent* evento) {
  PulsableQt::paintEvent(evento);
  QPainter pintor(this);
  QStyleOptionButton caja;
  caja.initFrom(this);
  caja.state |= Marcada() ? QStyle::State_On : QStyle::State_Off;
  const QSize lado(style()->pixelMetric(QStyle::PM_IndicatorWidth, &caja, this),
                   style()->pixelMetric(QStyle::PM_IndicatorHeight, &caja, this));
  caja.rect = QRect(QPoint(kMargen, (height() - lado.height()) / 2), lado);
  if (Marcada()) {
    QColor velo = palette().color(QPalette::Highlight);
    velo.setAlpha(kVeladura);
    pintor.fillRect(rect(), velo);
  }
  style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &caja, &pintor, this);
  PintarFoco(pintor, rect());
}

}  // namespace qt
