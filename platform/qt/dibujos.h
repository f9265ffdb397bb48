#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

namespace qt {

/// Draws one of the drawings that the models name ("check", "impresora", "pantalla", "izquierda",
/// "derecha"), whole and undistorted in the middle of a rectangle, in lines of that colour; with
/// " tenue" behind its name in fainter ones. An unknown name draws nothing.
void Dibujar(QPainter& pintor, const QRectF& donde, const QString& nombre, const QColor& color);

}  // namespace qt
