#include "qt/rejilla_qt.h"

#include <QHeaderView>
#include <QPainter>
#include <algorithm>

#include "forms/msflexgrid.h"
#include "qt/colores.h"
#include "qt/dibujo_celda.h"
#include "qt/medidas.h"
#include "qt/textos_qt.h"
#include "valores/texto.h"

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

/// The text of most characters in the rows of a column. Measuring them all would cost seconds in a
/// long list.
QString LaMasLarga(const services::MSFlexGrid& rejilla, int columna) {
  int larga = 0;
  std::size_t largo = 0;
  for (int f = 0; f < rejilla.Rows; ++f) {
    const std::string& texto = rejilla.TextMatrix(f, columna);
    if (texto.size() <= largo) continue;  // its characters are no more than its bytes
    const std::size_t este = services::Longitud(texto);
    if (este <= largo) continue;
    larga = f;
    largo = este;
  }
  return Texto(rejilla.TextMatrix(larga, columna));
}

}  // namespace

RejillaQt::RejillaQt(QWidget* padre) : TablaQt(padre) {
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

void RejillaQt::Medir() {
  if (!rejilla_) return;
  const QFontMetrics letra(Fuente(rejilla_->FontSize, rejilla_->FontBold));
  anchos_de_texto_.clear();
  for (int c = 0; c < rejilla_->Cols(); ++c) {
    const int texto = letra.horizontalAdvance(LaMasLarga(*rejilla_, c));
    anchos_de_texto_.append(texto + 2 * DibujoCelda::kMargen + 1);
  }
  Repartir();
}

int RejillaQt::LoQueLeFalta(int columna) const {
  const int pide = anchos_de_texto_.value(columna);
  return std::max(0, pide - Pixeles(rejilla_->ColWidth(columna)));
}

void RejillaQt::Repartir() {
  if (!rejilla_ || !model()) return;
  const int linea = fontMetrics().height() + kAire;
  verticalHeader()->setDefaultSectionSize(std::max(Pixeles(rejilla_->RowHeightMin), linea));
  const int ancha = ColumnaMasAncha(*rejilla_);
  int sobra = viewport()->width();
  for (int c = 0; c < rejilla_->Cols(); ++c) sobra -= Pixeles(rejilla_->ColWidth(c));
  for (int c = 0; c < rejilla_->Cols(); ++c) {
    const int ancho = rejilla_->ColWidth(c);
    setColumnHidden(c, ancho <= 0);
    horizontalHeader()->setSectionResizeMode(
        c, c == ancha ? QHeaderView::Stretch : QHeaderView::Fixed);
    if (ancho <= 0 || c == ancha) continue;
    const int mas = std::clamp(LoQueLeFalta(c), 0, std::max(0, sobra));
    setColumnWidth(c, Pixeles(ancho) + mas);
    sobra -= mas;
  }
}

void RejillaQt::MarcarFila(int fila) {
  viewport()->update(LugarDeFila(marcada_));
  viewport()->update(LugarDeFila(fila));
  marcada_ = fila;
}

QRect RejillaQt::LugarDeFila(int fila) const {
  return {0, rowViewportPosition(fila), viewport()->width(), rowHeight(fila)};
}

void RejillaQt::resizeEvent(QResizeEvent* evento) {
  TablaQt::resizeEvent(evento);
  Repartir();
}

/// The stripes of the rows, on to the bottom.
void RejillaQt::PintarResto(QPainter& pintor) {
  if (!rejilla_ || rejilla_->Rows < 3 || !model()) return;
  const int ultima = model()->rowCount() - 1;
  int arriba = rowViewportPosition(ultima) + rowHeight(ultima);
  if (ultima < 1 || ultima + 1 >= rejilla_->Rows || arriba < 0) return;
  const int alto = rowHeight(ultima);
  const int ancho = horizontalHeader()->length();
  // The last rows but the current one, which has colours of its own.
  const int muestra = rejilla_->Row == ultima + 1 || rejilla_->Row == ultima ? 1 : ultima;
  for (int fila = ultima + 1; arriba < viewport()->height(); ++fila, arriba += alto) {
    const int como = muestra + (fila + 1 - muestra) % 2;
    const QColor fondo =
        Emparejar(rejilla_->FondoDe(como, 0), rejilla_->ColorDe(como, 0), palette()).Fondo;
    pintor.fillRect(0, arriba, ancho, alto, fondo);
    pintor.setPen(LineaSobre(fondo));
    for (int c = 0; c < model()->columnCount(); ++c) {
      const int derecha = columnViewportPosition(c) + columnWidth(c) - 1;
      if (!isColumnHidden(c)) pintor.drawLine(derecha, arriba, derecha, arriba + alto - 1);
    }
  }
}

}  // namespace qt
