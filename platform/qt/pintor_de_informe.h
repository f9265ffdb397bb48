#pragma once

#include <QRectF>

#include "services/destino_informe.h"

class QPainter;

// What a report drew, painted. A page of the preview, a printer and a file are painted by this
// alone, so that what is seen is what is printed. The painter's unit is a twip of the sheet, and
// its origin the sheet's top left corner.

namespace qt {

/// The sheet.
[[nodiscard]] QRectF HojaEnTwips();

/// Colours are the paper's, whatever the desktop's theme.
void Pintar(QPainter& pintor, const services::Trazo& trazo);
void Pintar(QPainter& pintor, const services::LaminaInforme& lamina);

}  // namespace qt
