#include "qt/rejilla_qt.h"

#include <QHeaderView>
#include <QPainter>
#include <algorithm>

#include "forms/msflexgrid.h"
#include "qt/colores.h"
#include "qt/medidas.h"

namespace qt {
namespace {

constexpr int kAire = 8;  // over and under a line of text, together

int ColumnaMasAncha(const services::MSFlexGrid& rejilla) {
  int ancha = 0;
  for (int c = 1; c < rejilla.Cols(); ++c) {
    if (rejilla.ColWidth(c) > rejilla.ColWidth(ancha)) ancha = c;
  }
  return ancha;
}

}  // namespace

RejillaQt::RejillaQt(QWidget* padre) : QTableView(padre) {
  setSelectionMode(NoSelection);
  setAutoScroll(false);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(Pixeles(300));
}

void RejillaQt::Repartir() {
  if (!rejilla_ || !model()) return;
  const int linea = fontMetrics().height() + kAire;
  verticalHeader()->setDefaultSectionSize(std::max(Pixeles(rejilla_->RowHeightMin), linea));
  const int ancha = ColumnaMasAncha(*rejilla_);
  for (int c = 0; c < rejilla_->Cols(); ++c) {
    const int ancho = rejilla_->ColWidth(c);
    setColumnHidden(c, ancho <= 0);
    horizontalHeader()->setSectionResizeMode(
        c, c == ancha ? QHeaderView::Stretch : QHeaderView::Fixed);
    if (ancho > 0 && c != ancha) setColumnWidth(c, Pixeles(ancho));
  }
}

void RejillaQt::paintEvent(QPaintEvent* evento) {
  QTableView::paintEvent(evento);
  QPainter pintor(viewport());
  SeguirFranjas(pintor);
}

void RejillaQt::SeguirFranjas(QPainter& pintor) {
  if (!rejilla_ || rejilla_->Rows < 3 || !model()) return;
  const int ultima = model()->rowCount() - 1;
  int arriba = rowViewportPosition(ultima) + rowHeight(ultima);
  if (ultima < 1 || ultima + 1 >= rejilla_->Rows || arriba < 0) return;
  const int alto = rowHeight(ultima);
  const int ancho = horizontalHeader()->length();
  // The last rows but the current one, which has colours of its own.
  const int muestra = rejilla_->Row == ultima + 1 || rejilla_->Row == ultima ? 1 : ultima;
  for (int fila = ultima + 1; arriba < viewport()->height(); ++fila, arriba += alto) {
    const int como = muestra + ((fila + 1 - muestra) % 2 + 2) % 2;
    const QColor fondo =
        Emparejar(rejilla_->FondoDe(como, 0), rejilla_->ColorDe(como, 0), palette()).Fondo;
    pintor.fillRect(0, arriba, ancho, alto, fondo);
    pintor.setPen(fondo.darker(kLineaDeColumna));
    for (int c = 0; c < model()->columnCount(); ++c) {
      const int derecha = columnViewportPosition(c) + columnWidth(c) - 1;
      if (!isColumnHidden(c)) pintor.drawLine(derecha, arriba, derecha, arriba + alto - 1);
    }
  }
}

}  // namespace qt
