#pragma once

#include <QTableView>

namespace services {
class MSFlexGrid;
}  // namespace services

namespace qt {

/// The table that shows a grid: fixed row heights, a header that only tells the titles, and the
/// stripes of the rows carried on to its bottom.
class RejillaQt final : public QTableView {
 public:
  explicit RejillaQt(QWidget* padre = nullptr);

  /// The grid whose stripes it carries on; null for none.
  void Mostrar(const services::MSFlexGrid* rejilla) { rejilla_ = rejilla; }
  /// Widths and row height as the grid tells them: a column of width 0 is hidden, and the widest
  /// takes what the others leave.
  void Repartir();

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  void SeguirFranjas(QPainter& pintor);

  const services::MSFlexGrid* rejilla_ = nullptr;
};

}  // namespace qt
