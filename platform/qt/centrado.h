#pragma once

class QWidget;

namespace qt {

/// Lays the panels of a screen that are marked `centrado` in its design over its middle, out of its
/// layout. One that would leave no more than a strip of the title bar on sight goes below the bar,
/// which ends at `bajoLaBarra`, or over it where it has to, from the top.
void CentrarPaneles(QWidget& pantalla, int bajoLaBarra);

}  // namespace qt
