#pragma once

#include <QStyledItemDelegate>

#include "qt/colores.h"

namespace services {
class MSFlexGrid;
}  // namespace services

namespace qt {

/// Paints a cell as the grid tells it: background and text together, its drawing, and a frame
/// around the current one while the grid has the focus.
class DibujoCelda final : public QStyledItemDelegate {
 public:
  DibujoCelda(const services::MSFlexGrid& rejilla, QObject* padre);
  void Soltar() { rejilla_ = nullptr; }

  void paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
             const QModelIndex& celda) const override;

 private:
  const services::MSFlexGrid* rejilla_;
};

}  // namespace qt
