#pragma once

#include <QString>
#include <string>
#include <vector>

class QWidget;

namespace services {
class Form;
class Widget;
}  // namespace services

namespace qt {

/// The object name that shows a widget of the model: its own name, with `_2` behind it for element
/// 2 of a control array.
[[nodiscard]] QString NombreDeVista(const services::Widget& modelo);

/// The same of another element of its control array.
[[nodiscard]] QString NombreDeVista(const services::Widget& modelo, int indice);
/// The same by the name of the array; the name alone with an index of -1.
[[nodiscard]] QString NombreDeVista(const QString& nombre, int indice);

/// Names that one side has and the other lacks, each with the side that lacks it: `TxtTotal: no
/// está en la pantalla`. On the side of the toolkit the names that count begin with a capital;
/// those of mere arrangement begin with a small letter, as just a few of the models do.
[[nodiscard]] std::vector<std::string> NombresSinPareja(const services::Form& form,
                                                        const QWidget& pantalla);

}  // namespace qt
