#pragma once

#include <QColor>
#include <QPalette>

// Colours of the models: platform integers with blue in the high byte, negative for those of the
// desktop.

namespace qt {

struct Pareja {
  QColor Fondo;
  QColor Texto;
};

/// How much darker than its background the line at the right of a column is, in hundredths.
inline constexpr int kLineaDeColumna = 112;

/// White, black and the negative numbers are what the models hold when nobody told them a colour:
/// they stand for the desktop's own.
[[nodiscard]] bool EsDelEscritorio(int color);

/// Background and text that go together. A colour told by the system takes the told one of the
/// other kind with it, so that neither depends on the desktop's theme: white and black then are
/// themselves.
[[nodiscard]] Pareja Emparejar(int fondo, int texto, const QPalette& paleta);

/// The desktop's palette, with the texts of what is out of use just pale enough to be told apart
/// and still be read.
[[nodiscard]] QPalette Legible(const QPalette& delEscritorio);

/// Ratio of their brightness as a reader sees it, from 1 for none to 21.
[[nodiscard]] double Contraste(const QColor& uno, const QColor& otro);

}  // namespace qt
