#include "qt/vinculo_rejilla.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "qt/conversion.h"
#include "qt/dibujo_celda.h"
#include "qt/lienzo.h"
#include "services/entrada.h"
#include "services/escritorio.h"
#include "services/form.h"

namespace qt {

using services::Aspecto;

VinculoRejilla::VinculoRejilla(services::MSFlexGrid& modelo, RejillaQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo),
      datos_(new ModeloRejilla(modelo, &vista)),
      dibujo_(new DibujoCelda(modelo, &vista)) {
  vista.Mostrar(&modelo);
  vista.setModel(datos_);
  vista.setItemDelegate(dibujo_);
  vista.viewport()->installEventFilter(this);
  for (QLineEdit* caja : lienzo.findChildren<QLineEdit*>()) {
    if (caja->property("rejilla").toString() == vista.objectName()) editor_ = caja;
  }
  if (editor_) editor_->setParent(vista.viewport());
  if (editor_) editor_->installEventFilter(this);
  connect(vista.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { TomarPrimera(); });
  connect(vista.horizontalScrollBar(), &QScrollBar::valueChanged, this,
          [this] { ColocarEditor(); });
}

void VinculoRejilla::Soltar() {
  VinculoDe::Soltar();
  datos_->Soltar();
  dibujo_->Soltar();
  Vista().Mostrar(nullptr);
}

void VinculoRejilla::AnotarFilas() {
  datos_->AnotarFilas();
  rehecha_ = true;
  if (Modelo().Rows == 1) vaciada_ = true;
}

void VinculoRejilla::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Geometria || aspecto == Aspecto::Fuente) Vista().Repartir();
  if (aspecto == Aspecto::Seleccion) Vista().verticalScrollBar()->setValue(Modelo().TopRow - 1);
}

/// A list made anew starts at its top and stays there, wherever its making left the current cell;
/// a cell that became current in the list as it was comes to sight.
void VinculoRejilla::FinDeEvento() {
  if (Suelto()) return;
  datos_->Volcar();
  if (std::exchange(vaciada_, false)) Vista().scrollToTop();
  const bool aLaVista = actual_movida_ && !rehecha_;
  if (actual_movida_ || rehecha_) MostrarActual();
  if (aLaVista && !Vista().isColumnHidden(Modelo().Col)) Vista().scrollTo(CeldaActual());
  actual_movida_ = rehecha_ = false;
  TomarPrimera();
}

/// There is always a current cell while there are rows: without one a screen reader is lost.
QModelIndex VinculoRejilla::CeldaActual() const {
  return datos_->index(std::max<int>(Modelo().Row, 1) - 1, Modelo().Col);
}

void VinculoRejilla::MostrarActual() {
  Vista().selectionModel()->setCurrentIndex(CeldaActual(), QItemSelectionModel::NoUpdate);
}

void VinculoRejilla::TomarPrimera() {
  if (Suelto()) return;
  Lienzo::Turno turno(Pantalla());
  Modelo().TopRow = Vista().verticalScrollBar()->value() + 1;
  ColocarEditor();
}

void VinculoRejilla::ColocarEditor() {
  if (Suelto() || !editor_) return;
  const QRect celda = Vista().visualRect(CeldaActual());
  editor_->setGeometry(celda.adjusted(-1, -1, 1, 1));
}

bool VinculoRejilla::eventFilter(QObject* objeto, QEvent* evento) {
  if (Suelto()) return VinculoDe::eventFilter(objeto, evento);
  if (objeto == editor_) {
    if (evento->type() == QEvent::Show) ColocarEditor();
    return false;
  }
  if (objeto != Vista().viewport()) return VinculoDe::eventFilter(objeto, evento);
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
      return PulsarRaton(static_cast<QMouseEvent&>(*evento));
    case QEvent::MouseButtonDblClick:
      return DoblePulsarRaton(static_cast<QMouseEvent&>(*evento));
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      return true;
    case QEvent::Resize:
      // The table lays itself out first.
      QMetaObject::invokeMethod(
          this, [this] { ColocarEditor(); }, Qt::QueuedConnection);
      return false;
    default:
      return false;
  }
}

bool VinculoRejilla::PulsarRaton(QMouseEvent& evento) {
  const QModelIndex celda = Vista().indexAt(evento.position().toPoint());
  if (evento.button() == Qt::LeftButton && celda.isValid()) {
    services::entrada::PulsarCelda(Modelo(), celda.row() + 1, celda.column());
  }
  return true;
}

/// The first press of a double click was a click already.
bool VinculoRejilla::DoblePulsarRaton(QMouseEvent& evento) {
  if (evento.button() != Qt::LeftButton || !Modelo().TieneFoco()) return true;
  const QModelIndex celda = Vista().indexAt(evento.position().toPoint());
  if (celda != CeldaActual()) return true;
  services::MSFlexGrid& rejilla = Modelo();
  rejilla.Formulario().Escritorio().Evento([&] { services::Widget::Disparar(rejilla.DblClick); });
  return true;
}

bool VinculoRejilla::PulsarTecla(QKeyEvent& evento) {
  if (evento.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) {
    return VinculoDe::PulsarTecla(evento);
  }
  if (MoverPorTecla(evento.key())) return true;
  const bool tomada = VinculoDe::PulsarTecla(evento);
  if (Suelto() || !Modelo().TieneFoco()) return tomada;
  // What the mouse does to a cell, for who has none.
  if (evento.key() == Qt::Key_Space) PulsarActual(false);
  if (evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter) PulsarActual(true);
  return tomada;
}

void VinculoRejilla::PulsarActual(bool doble) {
  const int fila = Modelo().Row;
  const int columna = Modelo().Col;
  if (fila < 1) return;
  if (doble) return services::entrada::DoblePulsarCelda(Modelo(), fila, columna);
  services::entrada::PulsarCelda(Modelo(), fila, columna);
}

bool VinculoRejilla::MoverPorTecla(int tecla) {
  services::MSFlexGrid& rejilla = Modelo();
  const int ultima = rejilla.Rows - 1;
  const int pagina =
      std::max(1, Vista().viewport()->height() / std::max(1, Vista().rowHeight(0)) - 1);
  int fila = rejilla.Row;
  switch (tecla) {
    case Qt::Key_PageUp:
      fila -= pagina;
      break;
    case Qt::Key_PageDown:
      fila += pagina;
      break;
    case Qt::Key_Home:
      fila = 1;
      break;
    case Qt::Key_End:
      fila = ultima;
      break;
    default:
      return false;
  }
  if (ultima < 1) return true;
  rejilla.Formulario().Escritorio().Evento(
      [&] { rejilla.MoverA(std::clamp(fila, 1, ultima), rejilla.Col); });
  return true;
}

}  // namespace qt
