#pragma once

#include <QAbstractTableModel>
#include <QSet>

namespace services {
class MSFlexGrid;
}  // namespace services

namespace qt {

/// The data rows of a grid, read from the model as they are asked for. Its row 0 is the grid's row
/// 1; the grid's header row is the header.
///
/// What changes in the grid is gathered, and told to the views in one go by `Volcar`. Until then
/// the number of rows stays the one last told, whatever the grid holds meanwhile.
class ModeloRejilla final : public QAbstractTableModel {
 public:
  explicit ModeloRejilla(const services::MSFlexGrid& rejilla, QObject* padre);
  /// A column of which it is known that its cells are marked or not, before the first one is.
  void AnotarColumnaDeMarcas(int columna) { de_marcas_.insert(columna); }

  /// The grid is gone.
  void Soltar() { rejilla_ = nullptr; }
  /// Row of the grid, 0 being the header.
  void AnotarFila(int fila);
  void AnotarTodas();
  void Volcar();

  [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& celda, int papel) const override;
  [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;

  /// Name of the drawing in a cell.
  static constexpr int PapelDibujo = Qt::UserRole;

 private:
  void AjustarFilas();
  void AnotarDibujos(int primera, int ultima);
  [[nodiscard]] QString LoQueDice(int fila, int columna) const;
  [[nodiscard]] QVariant Dato(int fila, int columna, int papel) const;
  [[nodiscard]] bool HayCelda(int fila, int columna) const;

  const services::MSFlexGrid* rejilla_;
  QSet<int> de_marcas_;  // columns that have shown a drawing, or are going to
  int filas_ = 0;        // data rows that the views know of
  int primera_ = 0;
  int ultima_ = -1;  // stretch of changed rows of the grid
};

}  // namespace qt
