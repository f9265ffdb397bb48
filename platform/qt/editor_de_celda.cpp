#include "qt/editor_de_celda.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>
#include <utility>

namespace qt {

EditorDeCelda::EditorDeCelda(QTableView& vista, const QWidget& pantalla,
                             std::function<QModelIndex()> celda)
    : QObject(&vista), vista_(vista), celda_(std::move(celda)) {
  for (QLineEdit* caja : pantalla.findChildren<QLineEdit*>()) {
    if (caja->property("rejilla").toString() == vista.objectName()) editor_ = caja;
  }
  if (!editor_) return;
  editor_->installEventFilter(this);
  vista.installEventFilter(this);
  vista.viewport()->installEventFilter(this);
  for (const QScrollBar* barra : {vista.verticalScrollBar(), vista.horizontalScrollBar()}) {
    connect(barra, &QScrollBar::valueChanged, this, &EditorDeCelda::Colocar);
  }
  // What is typed into a cell that was scrolled away comes back to sight.
  connect(static_cast<QLineEdit*>(editor_.data()), &QLineEdit::textChanged, this, [this] {
    if (editor_->isVisible()) vista_.scrollTo(celda_());
  });
}

/// The part of the cell on sight, in the editor's own surroundings.
QRect EditorDeCelda::Hueco() const {
  const QWidget* lugar = vista_.viewport();
  const QRect celda = vista_.visualRect(celda_()).adjusted(-1, -1, 1, 1) & lugar->rect();
  if (celda.isEmpty()) return {};
  const QPoint esquina =
      editor_->parentWidget()->mapFromGlobal(lugar->mapToGlobal(celda.topLeft()));
  return {esquina, celda.size()};
}

void EditorDeCelda::Nombrar() {
  const QModelIndex celda = celda_();
  if (!celda.isValid()) return;
  const QString columna =
      vista_.model()->headerData(celda.column(), Qt::Horizontal, Qt::DisplayRole).toString();
  // Each naming is told to who listens.
  if (columna.isEmpty() || editor_->accessibleName() == columna) return;
  editor_->setAccessibleName(columna);
}

void EditorDeCelda::Colocar() {
  if (!editor_) return;
  if (editor_->isVisible()) Nombrar();
  const QRect hueco = Hueco();
  // Hidden it would lose the focus: out of sight it lies beyond the edge of the screen.
  if (hueco.isEmpty()) return editor_->move(-editor_->width(), -editor_->height());
  editor_->setGeometry(hueco);
}

void EditorDeCelda::ColocarLuego() {
  QMetaObject::invokeMethod(this, &EditorDeCelda::Colocar, Qt::QueuedConnection);
}

bool EditorDeCelda::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == editor_) {
    if (evento->type() == QEvent::Show) {
      editor_->raise();
      Colocar();
    }
    if (evento->type() != QEvent::Wheel) return false;
    QCoreApplication::sendEvent(vista_.viewport(), evento);
    return true;
  }
  // The table lays itself out first.
  if (evento->type() == QEvent::Resize || evento->type() == QEvent::Move) ColocarLuego();
  return false;
}

}  // namespace qt
