#include "qt/medidas.h"

#include <QApplication>
#include <QFontInfo>
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

QFont Fuente(double puntos, bool negrita) {
  QFont fuente = QApplication::font();
  fuente.setPointSizeF(std::max(PuntosDelEscritorio(), puntos * Proporcion()));
  fuente.setBold(negrita);
  return fuente;
}

}  // namespace qt
