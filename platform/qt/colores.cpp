#include "qt/colores.h"

#include <cmath>
#include <utility>

#include "forms/widget.h"

namespace qt {
namespace {

QColor DeEntero(int color) {
  return QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

double Lineal(double parte) {
  return parte <= 0.04045 ? parte / 12.92 : std::pow((parte + 0.055) / 1.055, 2.4);
}

double Brillo(const QColor& color) {
  return 0.2126 * Lineal(color.redF()) + 0.7152 * Lineal(color.greenF()) +
         0.0722 * Lineal(color.blueF());
}

QColor LegibleSobre(const QColor& fondo) {
  return Contraste(fondo, Qt::black) >= Contraste(fondo, Qt::white) ? Qt::black : Qt::white;
}

}  // namespace

bool EsDelEscritorio(int color) {
  return color < 0 || color == services::color::Blanco || color == services::color::Negro;
}

Pareja Emparejar(int fondo, int texto, const QPalette& paleta) {
  if (EsDelEscritorio(fondo) && EsDelEscritorio(texto)) {
    const bool panel = fondo < 0;
    return {paleta.color(panel ? QPalette::Window : QPalette::Base),
            paleta.color(panel ? QPalette::WindowText : QPalette::Text)};
  }
  const QColor papel = fondo < 0 ? paleta.color(QPalette::Window) : DeEntero(fondo);
  const QColor tinta = texto < 0 ? LegibleSobre(papel) : DeEntero(texto);
  return {papel, tinta};
}

double Contraste(const QColor& uno, const QColor& otro) {
  const double a = Brillo(uno) + 0.05;
  const double b = Brillo(otro) + 0.05;
  return a > b ? a / b : b / a;
}

}  // namespace qt
