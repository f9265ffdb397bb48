#pragma once

class QString;
class QWidget;

namespace qt {

/// Another widget like that one, by another name, laid out behind `anterior`: after it in a row,
/// column or grid, below it where nothing lays them out. Null for a kind that can't be had twice.
[[nodiscard]] QWidget* CopiarVista(const QWidget& modelo, QWidget& anterior, const QString& nombre);

}  // namespace qt
