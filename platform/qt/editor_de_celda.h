#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QTableView>
#include <functional>

namespace qt {

/// The in-place editor of a table: the line edit whose property `rejilla` holds the table's name.
/// It lies over the current cell, and goes out of sight with it. It is named as the column.
///
/// It is no part of the table: to a screen reader a table has cells and nothing else.
class EditorDeCelda final : public QObject {
 public:
  /// `celda` tells the current cell, an invalid one for none. Nothing comes of it on a screen
  /// without such a line edit.
  EditorDeCelda(QTableView& vista, const QWidget& pantalla, std::function<QModelIndex()> celda);

  void Colocar();

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void ColocarLuego();
  void Nombrar();
  [[nodiscard]] QRect Hueco() const;

  QTableView& vista_;
  std::function<QModelIndex()> celda_;
  /// As a widget: its own events arrive until it is no more than that.
  QPointer<QWidget> editor_;
};

}  // namespace qt
