#pragma once

#include <QStyledItemDelegate>

#include "qt/colores.h"

namespace services {
class MSFlexGrid;
}  // namespace services

namespace qt {

/// Paints a cell as the grid tells it: background and text together and its drawing. The current
/// row lies between two lines, and the current cell has a frame, a strong one while the grid has
/// the focus. A text that is cut is shown whole under the mouse.
class DibujoCelda final : public QStyledItemDelegate {
 public:
  DibujoCelda(const services::MSFlexGrid& rejilla, QObject* padre);
  void Soltar() { rejilla_ = nullptr; }

  void paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
             const QModelIndex& celda) const override;
  bool helpEvent(QHelpEvent* evento, QAbstractItemView* vista, const QStyleOptionViewItem& opcion,
                 const QModelIndex& celda) override;

  /// Blank pixels at either side of a text.
  static constexpr int kMargen = 4;

 private:
  void Resaltar(QPainter& pintor, const QStyleOptionViewItem& opcion, const QModelIndex& celda,
                const QColor& color) const;

  const services::MSFlexGrid* rejilla_;
};

}  // namespace qt
