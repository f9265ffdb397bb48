#include "qt/modelo_rejilla.h"

#include <algorithm>
#include <limits>

#include "forms/msflexgrid.h"
#include "qt/medidas.h"
#include "qt/textos_qt.h"
#include "valores/numero.h"

namespace qt {
namespace {

Qt::Alignment Alineacion(const services::MSFlexGrid& rejilla, int fila, int columna) {
  static constexpr Qt::AlignmentFlag kHorizontal[] = {Qt::AlignLeft, Qt::AlignHCenter,
                                                      Qt::AlignRight};
  const int valor = rejilla.AlineacionDe(fila, columna);
  if (valor >= 0 && valor < services::MSFlexGrid::alineacion::General) {
    // Rows are as high as a line, so that top and bottom are the middle.
    return kHorizontal[valor / 3] | Qt::AlignVCenter;
  }
  const bool numero = services::EsNumero(rejilla.TextMatrix(fila, columna));
  return (numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

ModeloRejilla::ModeloRejilla(const services::MSFlexGrid& rejilla, QObject* padre)
    : QAbstractTableModel(padre), rejilla_(&rejilla), filas_(rejilla.Rows - 1) {}

void ModeloRejilla::AnotarFila(int fila) {
  primera_ = ultima_ < 0 ? fila : std::min(primera_, fila);
  ultima_ = std::max(ultima_, fila);
}

void ModeloRejilla::AnotarTodas() {
  primera_ = 0;
  ultima_ = std::numeric_limits<int>::max();
}

void ModeloRejilla::Volcar() {
  if (!rejilla_ || ultima_ < 0) return;
  const int primera = std::max(primera_ - 1, 0);
  const bool cabecera = primera_ == 0;
  const int ultima = ultima_ - 1;
  ultima_ = -1;
  AjustarFilas();
  if (cabecera) emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  const int fin = std::min(ultima, filas_ - 1);
  AnotarDibujos(primera + 1, fin + 1);
  if (primera <= fin) emit dataChanged(index(primera, 0), index(fin, columnCount() - 1));
}

void ModeloRejilla::AjustarFilas() {
  const int filas = rejilla_->Rows - 1;
  if (filas > filas_) {
    beginInsertRows({}, filas_, filas - 1);
    filas_ = filas;
    endInsertRows();
  } else if (filas < filas_) {
    beginRemoveRows({}, filas, filas_ - 1);
    filas_ = filas;
    endRemoveRows();
  }
}

void ModeloRejilla::AnotarDibujos(int primera, int ultima) {
  for (int f = primera; f <= ultima; ++f) {
    for (int c = 0; c < rejilla_->Cols(); ++c) {
      if (!rejilla_->ImagenDe(f, c).empty()) de_marcas_.insert(c);
    }
  }
}

int ModeloRejilla::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : filas_;
}

int ModeloRejilla::columnCount(const QModelIndex& padre) const {
  return padre.isValid() || !rejilla_ ? 0 : rejilla_->Cols();
}

bool ModeloRejilla::HayCelda(int fila, int columna) const {
  return rejilla_ && fila < rejilla_->Rows && columna < rejilla_->Cols();
}

QVariant ModeloRejilla::data(const QModelIndex& celda, int papel) const {
  return celda.isValid() ? Dato(celda.row() + 1, celda.column(), papel) : QVariant();
}

QVariant ModeloRejilla::headerData(int seccion, Qt::Orientation sentido, int papel) const {
  return sentido == Qt::Horizontal ? Dato(0, seccion, papel) : QVariant();
}

/// A drawing is a mark; a cell that could be marked and isn't has nothing else to say of it. A row
/// that begins with a blank is none yet.
QString ModeloRejilla::LoQueDice(int fila, int columna) const {
  if (!rejilla_->ImagenDe(fila, columna).empty()) return QStringLiteral("Marcado");
  const std::string& texto = rejilla_->TextMatrix(fila, columna);
  const bool sinMarcar =
      texto.empty() && de_marcas_.contains(columna) && !rejilla_->TextMatrix(fila, 0).empty();
  return sinMarcar ? QStringLiteral("Sin marcar") : Texto(texto);
}

QVariant ModeloRejilla::Dato(int fila, int columna, int papel) const {
  if (!HayCelda(fila, columna)) return {};
  switch (papel) {
    case Qt::DisplayRole:
      return Texto(rejilla_->TextMatrix(fila, columna));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Alineacion(*rejilla_, fila, columna));
    case Qt::FontRole:
      return Fuente(rejilla_->CuerpoDe(fila, columna), rejilla_->NegritaDe(fila, columna));
    case PapelDibujo:
      return Texto(rejilla_->ImagenDe(fila, columna));
    case Qt::AccessibleTextRole:
      return LoQueDice(fila, columna);
    default:
      return {};
  }
}

}  // namespace qt
