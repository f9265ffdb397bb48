#pragma once

#include <QFont>

// The models measure in twips and points for a desktop of plain size; the window follows the
// desktop's own font and scale.

class QWidget;

namespace qt {

/// Logical pixels of a measure in twips, grown with the desktop's font.
[[nodiscard]] int Pixeles(int twips);

/// The other way round.
[[nodiscard]] double Twips(double pixeles);

/// The desktop's font at the size of so many points of the model. No text comes out smaller than
/// the desktop's own: what the models shrink to fit a small screen, the layouts fit by themselves.
[[nodiscard]] QFont Fuente(double puntos, bool negrita);

/// What was measured before a widget was first shown still counts, whatever changed since: all that
/// is in it is measured anew.
void OlvidarMedidas(QWidget& arbol);

/// The sizes that a design fixes are for a desktop of plain size: they grow with the font, so that
/// a field holds the same text.
void AgrandarConLaLetra(QWidget& diseno);

}  // namespace qt
