#pragma once

class QWidget;

namespace services {
class Widget;
}  // namespace services

namespace qt {

class Lienzo;
class Vinculo;

/// Joins a widget of the model to one of the screen, which comes to own the join. Null when the
/// one on the screen isn't of a class that can show it.
[[nodiscard]] Vinculo* CrearVinculo(services::Widget& modelo, QWidget& vista, Lienzo& lienzo);

}  // namespace qt
