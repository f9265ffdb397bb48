#include "qt/dibujo_celda.h"

#include <QPainter>

#include "qt/dibujos.h"
#include "qt/modelo_rejilla.h"
#include "services/msflexgrid.h"

namespace qt {
namespace {

constexpr int kMargen = 6;
/// Below this, text needs an edge to be told from its background.
constexpr double kContrasteEscaso = 2.5;

void Escribir(QPainter& pintor, const QRect& donde, const QModelIndex& celda,
              const Pareja& colores) {
  const QString texto = celda.data(Qt::DisplayRole).toString();
  if (texto.isEmpty()) return;
  pintor.setFont(celda.data(Qt::FontRole).value<QFont>());
  const QRect hueco = donde.adjusted(kMargen, 0, -kMargen, 0);
  const QString visible = pintor.fontMetrics().elidedText(texto, Qt::ElideRight, hueco.width());
  const auto alineacion = celda.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  const int modo = static_cast<int>(alineacion.toInt()) | Qt::TextSingleLine;
  if (Contraste(colores.Fondo, colores.Texto) < kContrasteEscaso) {
    pintor.setPen(colores.Fondo.darker(210));
    pintor.drawText(hueco.translated(1, 1), modo, visible);
  }
  pintor.setPen(colores.Texto);
  pintor.drawText(hueco, modo, visible);
}

void Enmarcar(QPainter& pintor, const QRect& donde, const QColor& color) {
  pintor.setPen(QPen(color, 2));
  pintor.setBrush(Qt::NoBrush);
  pintor.drawRect(donde.adjusted(1, 1, -1, -1));
}

}  // namespace

DibujoCelda::DibujoCelda(const services::MSFlexGrid& rejilla, QObject* padre)
    : QStyledItemDelegate(padre), rejilla_(&rejilla) {}

void DibujoCelda::paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
                        const QModelIndex& celda) const {
  const int fila = celda.row() + 1;
  if (!rejilla_ || fila >= rejilla_->Rows) return;
  const Pareja colores = Emparejar(rejilla_->FondoDe(fila, celda.column()),
                                   rejilla_->ColorDe(fila, celda.column()), opcion.palette);
  pintor->save();
  pintor->fillRect(opcion.rect, colores.Fondo);
  pintor->setPen(colores.Fondo.darker(112));
  pintor->drawLine(opcion.rect.topRight(), opcion.rect.bottomRight());
  Escribir(*pintor, opcion.rect, celda, colores);
  const QString dibujo = celda.data(ModeloRejilla::PapelDibujo).toString();
  if (!dibujo.isEmpty()) {
    Dibujar(*pintor, QRectF(opcion.rect).adjusted(3, 3, -3, -3), dibujo, colores.Texto);
  }
  if (opcion.state & QStyle::State_HasFocus) {
    Enmarcar(*pintor, opcion.rect, colores.Fondo.darker(260));
  }
  pintor->restore();
}

}  // namespace qt
