#pragma once

#include <QTableView>

namespace qt {

/// A table with a frame while it has the focus, which tells screen readers of its current cell only
/// then.
class TablaQt : public QTableView {
 public:
  using QTableView::QTableView;

 protected:
  /// What is painted over the cells and under the frame.
  virtual void PintarResto(QPainter&) {}

  void currentChanged(const QModelIndex& actual, const QModelIndex& anterior) override;
  void paintEvent(QPaintEvent* evento) override;
  void scrollContentsBy(int dx, int dy) override;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;
};

}  // namespace qt
