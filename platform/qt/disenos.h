#pragma once

#include <functional>
#include <map>
#include <string>

class QWidget;

namespace qt {

/// How each screen is laid out, by its name: makes the widgets on a bare surface.
using Disenos = std::map<std::string, std::function<void(QWidget&)>>;

/// The screens of the component.
[[nodiscard]] Disenos DisenosDeTesvara();

}  // namespace qt
