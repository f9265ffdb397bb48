#pragma once

#include <QList>

#include "qt/tabla_qt.h"

namespace services {
class MSFlexGrid;
}  // namespace services

namespace qt {

/// The table that shows a grid: fixed row heights, a header that only tells the titles, and the
/// stripes of the rows carried on to its bottom.
class RejillaQt final : public TablaQt {
 public:
  explicit RejillaQt(QWidget* padre = nullptr);

  /// The grid whose stripes it carries on; null for none.
  void Mostrar(const services::MSFlexGrid* rejilla) { rejilla_ = rejilla; }
  /// Widths and row height as the grid tells them: a column of width 0 is hidden, and the widest
  /// takes what the others leave. In a table wider than the grid was designed the others first take
  /// of the room what their texts lack.
  void Repartir();
  /// Measures the texts anew; a row that changes later counts from the next time on.
  void Medir();
  /// The current row is marked over all its cells: the one that was and the one that is are painted
  /// anew, whole.
  void MarcarFila(int fila);
  /// Where that row is in the viewport, as much of it as is on sight.
  [[nodiscard]] QRect FilaMarcada() const { return LugarDeFila(marcada_) & viewport()->rect(); }

 protected:
  void PintarResto(QPainter& pintor) override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  [[nodiscard]] QRect LugarDeFila(int fila) const;
  [[nodiscard]] int LoQueLeFalta(int columna) const;

  const services::MSFlexGrid* rejilla_ = nullptr;
  QList<int> anchos_de_texto_;  // of the longest text of each column
  int marcada_ = 0;             // row of the view that is marked as the current one
};

}  // namespace qt
