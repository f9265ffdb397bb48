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

/// White, black and the negative numbers are what the models hold when nobody told them a colour:
/// they stand for the desktop's own.
[[nodiscard]] bool EsDelEscritorio(int color);

/// A desktop of light letters on dark. There a field that is out of use looks as the desktop has it
/// as well: in its told colour it would shine brighter than the ones in use.
[[nodiscard]] bool EsOscura(const QPalette& paleta);

/// Background and text that go together. A colour told by the system takes the told one of the
/// other kind with it, so that neither depends on the desktop's theme: white and black then are
/// themselves.
[[nodiscard]] Pareja Emparejar(int fondo, int texto, const QPalette& paleta);

/// The desktop's palette, with the texts of what is out of use just pale enough to be told apart
/// and still be read.
[[nodiscard]] QPalette Legible(const QPalette& delEscritorio);

/// Colours to draw with on a background, of its hue: part of the way to black or to white,
/// whichever is further. The line at the right of a column only just shows; what marks the current
/// cell stands out.
[[nodiscard]] QColor LineaSobre(const QColor& fondo);
[[nodiscard]] QColor MarcaSobre(const QColor& fondo);

/// Ratio of their brightness as a reader sees it, from 1 for none to 21.
[[nodiscard]] double Contraste(const QColor& uno, const QColor& otro);

}  // namespace qt
