#include "qt/medidas.h"

#include <QApplication>
#include <QFontInfo>
#include <QLayout>
#include <QWidget>
#include <algorithm>

#include "forms/iform.h"

namespace qt {
namespace {

/// Points of the font of a desktop of plain size.
constexpr double kPuntosLlanos = 9;

double PuntosDelEscritorio() {
  return QFontInfo(QApplication::font()).pointSizeF();
}

double Proporcion() {
  return std::max(1.0, PuntosDelEscritorio() / kPuntosLlanos);
}

}  // namespace

int Pixeles(int twips) {
  return qRound(twips * Proporcion() / services::kTwips);
}

double Twips(double pixeles) {
  return pixeles * services::kTwips / Proporcion();
}

void OlvidarMedidas(QWidget& arbol) {
  for (QWidget* vista : arbol.findChildren<QWidget*>()) vista->updateGeometry();
  for (QLayout* arreglo : arbol.findChildren<QLayout*>()) arreglo->invalidate();
}

void AgrandarConLaLetra(QWidget& diseno) {
  const auto crecer = [](int pixeles) {
    return pixeles >= QWIDGETSIZE_MAX ? QWIDGETSIZE_MAX : qRound(pixeles * Proporcion());
  };
  for (QWidget* vista : diseno.findChildren<QWidget*>()) {
    const QSize minimo = vista->minimumSize();
    const QSize maximo = vista->maximumSize();
    vista->setMinimumSize(crecer(minimo.width()), crecer(minimo.height()));
    vista->setMaximumSize(crecer(maximo.width()), crecer(maximo.height()));
  }
}

QFont Fuente(double puntos, bool negrita) {
  QFont fuente = QApplication::font();
  fuente.setPointSizeF(std::max(PuntosDelEscritorio(), puntos * Proporcion()));
  fuente.setBold(negrita);
  return fuente;
}

}  // namespace qt
