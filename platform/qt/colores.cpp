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

constexpr double kContrasteLegible = 4.5;

QColor Mezclar(const QColor& uno, const QColor& otro, double parteDelOtro) {
  const auto mezcla = [parteDelOtro](float a, float b) {
    return static_cast<float>(a + (b - a) * parteDelOtro);
  };
  return QColor::fromRgbF(mezcla(uno.redF(), otro.redF()), mezcla(uno.greenF(), otro.greenF()),
                          mezcla(uno.blueF(), otro.blueF()));
}

/// As much of the background in the text as leaves it readable.
QColor Palido(const QColor& texto, const QColor& fondo) {
  for (int parte = 60; parte > 0; parte -= 5) {
    const QColor color = Mezclar(texto, fondo, parte / 100.0);
    if (Contraste(fondo, color) >= kContrasteLegible) return color;
  }
  return texto;
}

constexpr double kParteDeLinea = 0.11;
constexpr double kParteDeMarca = 0.67;

}  // namespace

QColor LineaSobre(const QColor& fondo) {
  return Mezclar(fondo, LegibleSobre(fondo), kParteDeLinea);
}

QColor MarcaSobre(const QColor& fondo) {
  return Mezclar(fondo, LegibleSobre(fondo), kParteDeMarca);
}

bool EsOscura(const QPalette& paleta) {
  return Brillo(paleta.color(QPalette::Base)) < Brillo(paleta.color(QPalette::Text));
}

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

QPalette Legible(const QPalette& delEscritorio) {
  static constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> kTextos[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button},
  };
  // Only what is set here is not the desktop's.
  QPalette paleta;
  // Not every desktop tells a field out of use by its background.
  if (delEscritorio.color(QPalette::Disabled, QPalette::Base) ==
      delEscritorio.color(QPalette::Active, QPalette::Base)) {
    paleta.setColor(QPalette::Disabled, QPalette::Base, delEscritorio.color(QPalette::Window));
  }
  for (const auto& [texto, fondo] : kTextos) {
    paleta.setColor(QPalette::Disabled, texto,
                    Palido(delEscritorio.color(QPalette::Active, texto),
                           paleta.resolve(delEscritorio).color(QPalette::Disabled, fondo)));
  }
  return paleta;
}

double Contraste(const QColor& uno, const QColor& otro) {
  const double a = Brillo(uno) + 0.05;
  const double b = Brillo(otro) + 0.05;
  return a > b ? a / b : b / a;
}

}  // namespace qt
