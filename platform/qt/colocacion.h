#pragma once

#include <QList>
#include <QRect>

class QWidget;

// Where a message goes, so that what it is about can still be read.

namespace qt {

/// The window that a message goes over: the active one or, where none is for the moment, as between
/// two messages, one with a screen in it. Null when there is none.
[[nodiscard]] QWidget* VentanaDelUsuario();

/// Whether the user can get to a widget: shown, in use, and under no panel that lies over its
/// screen.
[[nodiscard]] bool AlAlcance(const QWidget& vista);

/// What a message over a window may be about, on the desktop: what has the focus there and then the
/// current rows of the grids that can be got to.
[[nodiscard]] QList<QRect> LoTratado(const QWidget& ventana);

/// Top left corner of a box over the middle of a window or, as near to it as can be, beside what it
/// has to leave on sight; where there is no room for that, of as many of them as there is, from the
/// first on. Always inside the desktop.
[[nodiscard]] QPoint Colocar(const QSize& caja, const QRect& ventana, const QRect& escritorio,
                             const QList<QRect>& aLaVista);

/// The same for a box that is about to be shown over its parent.
void ColocarSobreSuVentana(QWidget& caja, const QList<QRect>& aLaVista);

}  // namespace qt
