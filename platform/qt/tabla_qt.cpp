#include "qt/tabla_qt.h"

#include <QAccessible>
#include <QPainter>

namespace qt {
namespace {

constexpr int kMarco = 2;

}  // namespace

/// The current cell may be far below, or in a column that isn't shown: the frame is the whole's.
void TablaQt::paintEvent(QPaintEvent* evento) {
  QTableView::paintEvent(evento);
  QPainter pintor(viewport());
  PintarResto(pintor);
  if (!hasFocus()) return;
  pintor.setPen(QPen(palette().color(QPalette::Highlight), kMarco));
  pintor.setBrush(Qt::NoBrush);
  pintor.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

/// The frame of the focus stays where it is, and what is scrolled holds a copy of it.
void TablaQt::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (hasFocus()) viewport()->update();
}

void TablaQt::focusInEvent(QFocusEvent* evento) {
  QTableView::focusInEvent(evento);
  viewport()->update();
  // What became current meanwhile has not been told.
  if (QAccessible::isActive()) QTableView::currentChanged(currentIndex(), currentIndex());
}

void TablaQt::focusOutEvent(QFocusEvent* evento) {
  QTableView::focusOutEvent(evento);
  viewport()->update();
}

/// The toolkit tells screen readers of a current cell as of one that has got the focus.
void TablaQt::currentChanged(const QModelIndex& actual, const QModelIndex& anterior) {
  if (hasFocus()) return QTableView::currentChanged(actual, anterior);
  QAbstractItemView::currentChanged(actual, anterior);  // NOLINT(bugprone-parent-virtual-call)
}

}  // namespace qt
