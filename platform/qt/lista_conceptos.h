#pragma once

#include <QAbstractTableModel>
#include <vector>

namespace qt {

struct Concepto {
  QString Codigo;
  QString Nombre;
};

/// The concepts that a search leaves: code and name, in the order they were given.
class ListaConceptos final : public QAbstractTableModel {
 public:
  ListaConceptos(std::vector<Concepto> conceptos, QObject* padre);

  /// Those whose code begins with a text.
  void FiltrarPorCodigo(const QString& texto);
  /// Those whose name has all the words of a text somewhere in it, accents and case aside.
  void FiltrarPorNombre(const QString& texto);
  [[nodiscard]] const Concepto& En(int fila) const;
  [[nodiscard]] std::size_t Todos() const { return conceptos_.size(); }

  [[nodiscard]] int rowCount(const QModelIndex& padre = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& padre = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& celda, int papel) const override;
  [[nodiscard]] QVariant headerData(int seccion, Qt::Orientation sentido, int papel) const override;

 private:
  template <class Condicion>
  void Filtrar(const Condicion& pasa);

  std::vector<Concepto> conceptos_;
  std::vector<QString> llanos_;  // names without accents or case, one for each concept
  std::vector<std::size_t> visibles_;
};

}  // namespace qt
