#include "qt/lista_conceptos.h"

#include <QStringList>
#include <algorithm>
#include <utility>

namespace qt {
namespace {

QString Llano(const QString& texto) {
  QString llano = texto.normalized(QString::NormalizationForm_D).toCaseFolded();
  llano.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
  return llano;
}

}  // namespace

ListaConceptos::ListaConceptos(std::vector<Concepto> conceptos, QObject* padre)
    : QAbstractTableModel(padre), conceptos_(std::move(conceptos)) {
  for (const Concepto& concepto : conceptos_) llanos_.push_back(Llano(concepto.Nombre));
  FiltrarPorCodigo(QString());
}

template <class Condicion>
void ListaConceptos::Filtrar(const Condicion& pasa) {
  beginResetModel();
  visibles_.clear();
  for (std::size_t i = 0; i < conceptos_.size(); ++i) {
    if (pasa(i)) visibles_.push_back(i);
  }
  endResetModel();
}

void ListaConceptos::FiltrarPorCodigo(const QString& texto) {
  const QString comienzo = texto.trimmed();
  Filtrar([&](std::size_t i) { return conceptos_[i].Codigo.startsWith(comienzo); });
}

void ListaConceptos::FiltrarPorNombre(const QString& texto) {
  const QStringList palabras = Llano(texto).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  Filtrar([&](std::size_t i) {
    return std::all_of(palabras.begin(), palabras.end(),
                       [&](const QString& palabra) { return llanos_[i].contains(palabra); });
  });
}

const Concepto& ListaConceptos::En(int fila) const {
  return conceptos_[visibles_.at(static_cast<std::size_t>(fila))];
}

int ListaConceptos::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(visibles_.size());
}

int ListaConceptos::columnCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : 2;
}

QVariant ListaConceptos::data(const QModelIndex& celda, int papel) const {
  if (papel != Qt::DisplayRole && papel != Qt::AccessibleTextRole) return {};
  const Concepto& concepto = En(celda.row());
  if (celda.column() > 0) return concepto.Nombre;
  // The row is chosen whole, and a screen reader tells the first cell of it.
  return papel == Qt::DisplayRole ? concepto.Codigo
                                  : concepto.Codigo + QLatin1Char(' ') + concepto.Nombre;
}

QVariant ListaConceptos::headerData(int seccion, Qt::Orientation sentido, int papel) const {
  if (sentido != Qt::Horizontal || papel != Qt::DisplayRole) return {};
  return seccion == 0 ? QStringLiteral("Código") : QStringLiteral("Nombre");
}

}  // namespace qt
