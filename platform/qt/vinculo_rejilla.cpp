#include "qt/vinculo_rejilla.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "forms/entrada.h"
#include "qt/dibujo_celda.h"
#include "qt/editor_de_celda.h"
#include "qt/lienzo.h"

namespace qt {
using services::Aspecto;

VinculoRejilla::VinculoRejilla(services::MSFlexGrid& modelo, RejillaQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo),
      datos_(new ModeloRejilla(modelo, &vista)),
      dibujo_(new DibujoCelda(modelo, &vista)),
      editor_(new EditorDeCelda(vista, lienzo,
                                [this] { return Suelto() ? QModelIndex() : CeldaActual(); })) {
  vista.Mostrar(&modelo);
  const QVariant marcas = vista.property("marcas");
  if (marcas.isValid()) datos_->AnotarColumnaDeMarcas(marcas.toInt());
  vista.setModel(datos_);
  vista.setItemDelegate(dibujo_);
  vista.viewport()->installEventFilter(this);
  connect(vista.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { TomarPrimera(); });
}

void VinculoRejilla::Soltar() {
  VinculoDe::Soltar();
  datos_->Soltar();
  dibujo_->Soltar();
  Vista().Mostrar(nullptr);
}

void VinculoRejilla::AnotarFilas() {
  datos_->AnotarTodas();
  rehecha_ = true;
  if (Modelo().Rows == 1) vaciada_ = true;
}

void VinculoRejilla::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Geometria || aspecto == Aspecto::Fuente) Vista().Repartir();
  if (aspecto == Aspecto::Seleccion) Vista().verticalScrollBar()->setValue(Modelo().TopRow - 1);
}

/// A list made anew starts at its top and stays there, wherever its making left the current cell;
/// a cell that became current in the list as it was, or that a key was for, comes to sight.
void VinculoRejilla::FinDeEvento() {
  if (Suelto()) return;
  datos_->Volcar();
  if (rehecha_) Vista().Medir();
  if (std::exchange(vaciada_, false)) Vista().scrollToTop();
  if (actual_movida_ || rehecha_) MostrarActual();
  if (actual_movida_ && !rehecha_ && !Vista().isColumnHidden(Modelo().Col)) TraerALaVista();
  if (actual_movida_ || rehecha_) Vista().MarcarFila(CeldaActual().row());
  actual_movida_ = rehecha_ = false;
  TomarPrimera();
  if (QAccessible::isActive()) DecirActual();
}

/// Tells a screen reader that the text of the current cell is another, or that it was marked, while
/// the list has the focus. The toolkit itself only tells of moves.
void VinculoRejilla::DecirActual() {
  const QModelIndex actual = Vista().currentIndex();
  const QString texto = actual.data(Qt::AccessibleTextRole).toString();
  const bool otra = actual != dicha_;
  dicha_ = actual;
  if (std::exchange(dicho_, texto) == texto || otra || !Vista().hasFocus()) return;
  QAccessibleInterface* tabla = QAccessible::queryAccessibleInterface(&Vista());
  QAccessibleTableInterface* celdas = tabla ? tabla->tableInterface() : nullptr;
  QAccessibleInterface* celda = celdas ? celdas->cellAt(actual.row(), actual.column()) : nullptr;
  if (!celda) return;
  QAccessibleEvent cambio(celda, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&cambio);
}

/// A question is about the current row, whatever column of it is the current one.
void VinculoRejilla::TraerALaVista() {
  if (Suelto()) return;
  const QModelIndex actual = CeldaActual();
  int columna = actual.column();
  // Without a jump to the side.
  if (Vista().isColumnHidden(columna)) columna = Vista().horizontalHeader()->logicalIndexAt(0);
  Vista().scrollTo(actual.siblingAtColumn(columna));
}

/// There is always a current cell while there are rows: without one a screen reader is lost.
QModelIndex VinculoRejilla::CeldaActual() const {
  return datos_->index(std::max<int>(Modelo().Row, 1) - 1, Modelo().Col);
}

/// A current cell in a hidden column is shown by the first one of its row that isn't hidden.
void VinculoRejilla::MostrarActual() {
  QModelIndex actual = CeldaActual();
  if (Vista().isColumnHidden(actual.column())) {
    int columna = 0;
    while (columna + 1 < datos_->columnCount() && Vista().isColumnHidden(columna)) ++columna;
    actual = actual.siblingAtColumn(columna);
  }
  Vista().selectionModel()->setCurrentIndex(actual, QItemSelectionModel::NoUpdate);
}

void VinculoRejilla::TomarPrimera() {
  if (Suelto()) return;
  Lienzo::Turno turno(Pantalla());
  Modelo().TopRow = Vista().verticalScrollBar()->value() + 1;
  editor_->Colocar();
}

bool VinculoRejilla::eventFilter(QObject* objeto, QEvent* evento) {
  if (Suelto() || objeto != Vista().viewport()) return VinculoDe::eventFilter(objeto, evento);
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
      return PulsarRaton(static_cast<QMouseEvent&>(*evento));
    case QEvent::MouseButtonDblClick:
      return DoblePulsarRaton(static_cast<QMouseEvent&>(*evento));
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
      return true;
    default:
      return false;
  }
}

bool VinculoRejilla::PulsarRaton(QMouseEvent& evento) {
  const QModelIndex celda = Vista().indexAt(evento.position().toPoint());
  pulsada_ = evento.button() == Qt::LeftButton && celda.isValid() &&
             services::entrada::PulsarCelda(Modelo(), celda.row() + 1, celda.column());
  return true;
}

/// The first press of a double click was a click already. Where that took the current cell, or what
/// lies under the mouse now, doesn't matter.
bool VinculoRejilla::DoblePulsarRaton(QMouseEvent& evento) {
  if (evento.button() == Qt::LeftButton && std::exchange(pulsada_, false)) {
    services::entrada::SegundaPulsacion(Modelo());
  }
  return true;
}

bool VinculoRejilla::PulsarTecla(QKeyEvent& evento) {
  // What was scrolled away comes back for a key that is meant for it.
  actual_movida_ = true;
  const bool orden = (evento.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0;
  return (!orden && MoverPorTecla(evento.key())) || VinculoDe::PulsarTecla(evento);
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
  services::entrada::LlevarCelda(rejilla, fila, rejilla.Col);
  return true;
}

}  // namespace qt
