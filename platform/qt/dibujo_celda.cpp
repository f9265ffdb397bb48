#include "qt/dibujo_celda.h"

#include <QPainter>

#include "forms/msflexgrid.h"
#include "qt/dibujos.h"
#include "qt/modelo_rejilla.h"

namespace qt {
namespace {

constexpr int kMargen = 6;
/// Below this, text needs an edge to be told from its background.
constexpr double kContrasteEscaso = 2.5;
/// The edge has the hue of the background.
constexpr int kViveza = 140;
constexpr int kClaridad = 110;

/// Draws something in a colour; where it hardly stands out from its background, first as its edge
/// all around.
template <class Trazo>
void Perfilar(const Pareja& colores, const Trazo& trazo) {
  if (Contraste(colores.Fondo, colores.Texto) < kContrasteEscaso) {
    const QColor borde = QColor::fromHsv(colores.Fondo.hsvHue(), kViveza, kClaridad);
    for (const QPoint& lado : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
      trazo(lado, borde);
    }
  }
  trazo(QPoint(), colores.Texto);
}

void Escribir(QPainter& pintor, const QRect& donde, const QModelIndex& celda,
              const Pareja& colores) {
  const QString texto = celda.data(Qt::DisplayRole).toString();
  if (texto.isEmpty()) return;
  pintor.setFont(celda.data(Qt::FontRole).value<QFont>());
  const QRect hueco = donde.adjusted(kMargen, 0, -kMargen, 0);
  const QString visible = pintor.fontMetrics().elidedText(texto, Qt::ElideRight, hueco.width());
  const auto alineacion = celda.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  const int modo = static_cast<int>(alineacion.toInt()) | Qt::TextSingleLine;
  Perfilar(colores, [&](const QPoint& lado, const QColor& color) {
    pintor.setPen(color);
    pintor.drawText(hueco.translated(lado), modo, visible);
  });
}

void PonerDibujo(QPainter& pintor, const QRect& donde, const QModelIndex& celda,
                 const Pareja& colores) {
  const QString dibujo = celda.data(ModeloRejilla::PapelDibujo).toString();
  if (dibujo.isEmpty()) return;
  const QRectF hueco = QRectF(donde).adjusted(3, 3, -3, -3);
  Perfilar(colores, [&](const QPoint& lado, const QColor& color) {
    Dibujar(pintor, hueco.translated(lado), dibujo, color);
  });
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
  pintor->setPen(colores.Fondo.darker(kLineaDeColumna));
  pintor->drawLine(opcion.rect.topRight(), opcion.rect.bottomRight());
  Escribir(*pintor, opcion.rect, celda, colores);
  PonerDibujo(*pintor, opcion.rect, celda, colores);
  if (opcion.state & QStyle::State_HasFocus) {
    Enmarcar(*pintor, opcion.rect, colores.Fondo.darker(260));
  }
  pintor->restore();
}

}  // namespace qt
