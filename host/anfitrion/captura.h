#pragma once

#include <QString>
#include <QTextStream>

class QWidget;

namespace anfitrion {

/// Saves a picture of the window in a folder, as `tesvara-de-pagos.png`, and gives its path. Throws
/// `ErrorEjecucion` 0x80004005 where it can't be written.
QString GuardarImagen(QWidget& ventana, const QString& carpeta);

/// Writes as text the list that a window shows: a line a row, its texts split by tabs, and the
/// totals.
void EscribirLista(const QWidget& ventana, QTextStream& salida);

}  // namespace anfitrion
