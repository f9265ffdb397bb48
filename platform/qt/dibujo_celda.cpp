#include "qt/dibujo_celda.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "forms/msflexgrid.h"
#include "qt/dibujos.h"
#include "qt/modelo_rejilla.h"

namespace qt {
namespace {

/// Below this, text needs an edge to be told from its background.
constexpr double kContrasteEscaso = 2.5;
/// The edge has the hue of the background.
constexpr int kViveza = 160;
constexpr int kClaridad = 80;
constexpr int kRaya = 2;  // over and under the current row

/// Draws something in a colour; where it hardly stands out from its background, first as its edge
/// all around.
template <class Trazo>
void Perfilar(const Pareja& colores, const Trazo& trazo) {
  if (Contraste(colores.Fondo, colores.Texto) < kContrasteEscaso) {
    const QColor borde = QColor::fromHsv(colores.Fondo.hsvHue(), kViveza, kClaridad);
    for (int x = -1; x <= 1; ++x) {
      for (int y = -1; y <= 1; ++y) trazo(QPoint(x, y), borde);
    }
  }
  trazo(QPoint(), colores.Texto);
}

QRect HuecoDelTexto(const QRect& donde) {
  return donde.adjusted(DibujoCelda::kMargen, 0, -DibujoCelda::kMargen, 0);
}

void Escribir(QPainter& pintor, const QRect& donde, const QModelIndex& celda,
              const Pareja& colores) {
  const QString texto = celda.data(Qt::DisplayRole).toString();
  if (texto.isEmpty()) return;
  pintor.setFont(celda.data(Qt::FontRole).value<QFont>());
  const QRect hueco = HuecoDelTexto(donde);
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

void Enmarcar(QPainter& pintor, const QRect& donde, const QPen& trazo) {
  pintor.setPen(trazo);
  pintor.setBrush(Qt::NoBrush);
  const int grueso = trazo.width();
  pintor.drawRect(donde.adjusted(grueso / 2, grueso / 2, -(grueso + 1) / 2, -(grueso + 1) / 2));
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
  pintor->setPen(LineaSobre(colores.Fondo));
  pintor->drawLine(opcion.rect.topRight(), opcion.rect.bottomRight());
  Escribir(*pintor, opcion.rect, celda, colores);
  PonerDibujo(*pintor, opcion.rect, celda, colores);
  if (fila == rejilla_->Row) Resaltar(*pintor, opcion, celda, MarcaSobre(colores.Fondo));
  pintor->restore();
}

/// The current row always shows, also where its cell is in a column that doesn't: it is what
/// "Borrar" is about.
void DibujoCelda::Resaltar(QPainter& pintor, const QStyleOptionViewItem& opcion,
                           const QModelIndex& celda, const QColor& color) const {
  const bool conFoco = opcion.widget && opcion.widget->hasFocus();
  pintor.fillRect(QRect(opcion.rect.topLeft(), QSize(opcion.rect.width(), kRaya)), color);
  pintor.fillRect(opcion.rect.adjusted(0, opcion.rect.height() - kRaya, 0, 0), color);
  if (celda.column() == rejilla_->Col) Enmarcar(pintor, opcion.rect, QPen(color, conFoco ? 3 : 1));
}

bool DibujoCelda::helpEvent(QHelpEvent* evento, QAbstractItemView* vista,
                            const QStyleOptionViewItem& opcion, const QModelIndex& celda) {
  if (evento->type() != QEvent::ToolTip || !celda.isValid()) {
    return QStyledItemDelegate::helpEvent(evento, vista, opcion, celda);
  }
  const QString texto = celda.data(Qt::DisplayRole).toString();
  const QFontMetrics letra(celda.data(Qt::FontRole).value<QFont>());
  const bool cortado = letra.horizontalAdvance(texto) > HuecoDelTexto(opcion.rect).width();
  QToolTip::showText(evento->globalPos(), cortado ? texto.toHtmlEscaped() : QString(), vista);
  return true;
}

}  // namespace qt
