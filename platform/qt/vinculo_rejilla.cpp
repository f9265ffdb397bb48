#include "qt/vinculo_rejilla.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "qt/dibujo_celda.h"
#include "qt/lienzo.h"
#include "qt/teclado.h"
#include "qt/textos_qt.h"

namespace qt {
namespace {

bool EsDeMover(int tecla) {
  return tecla >= Qt::Key_Home && tecla <= Qt::Key_PageDown;
}

}  // namespace

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
    if (evento->type() == QEvent::Hide) {
      QMetaObject::invokeMethod(
          this, [this] { VolverDelEditor(); }, Qt::QueuedConnection);
    }
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

/// Whoever closed the editor by its keys goes on with the grid's.
void VinculoRejilla::VolverDelEditor() {
  if (Suelto() || Modelo().Formulario().Escritorio().Foco()) return;
  services::entrada::Enfocar(Modelo());
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
  services::entrada::SegundaPulsacion(Modelo());
  return true;
}

bool VinculoRejilla::PulsarTecla(QKeyEvent& evento) {
  if (evento.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) {
    return VinculoDe::PulsarTecla(evento);
  }
  if (EsDeMover(evento.key()) && EntrarALaVista()) return true;
  if (MoverPorTecla(evento.key())) return true;
  if (EscribirEnCelda(evento)) return true;
  const bool tomada = VinculoDe::PulsarTecla(evento);
  if (Suelto() || !Modelo().TieneFoco()) return tomada;
  // What the mouse does to a cell, for who has none.
  if (evento.key() == Qt::Key_Space) PulsarActual(false);
  if (evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter) PulsarActual(true);
  return tomada;
}

/// A list made anew leaves its current cell in a hidden column of the last row. The first key that
/// moves takes it to where the user looks.
bool VinculoRejilla::EntrarALaVista() {
  services::MSFlexGrid& rejilla = Modelo();
  if (rejilla.Rows < 2 || rejilla.ColWidth(rejilla.Col) > 0) return false;
  int columna = 0;
  while (columna < rejilla.Cols() && rejilla.ColWidth(columna) == 0) ++columna;
  if (columna == rejilla.Cols()) return false;
  services::entrada::LlevarCelda(rejilla, rejilla.TopRow, columna);
  return true;
}

/// Who starts typing over a cell means its editor: what a double click opens takes the characters.
bool VinculoRejilla::EscribirEnCelda(QKeyEvent& evento) {
  const std::u32string caracteres = teclado::Caracteres(evento);
  if (caracteres.empty() || caracteres.front() <= U' ' || Modelo().ColWidth(Modelo().Col) == 0) {
    return false;
  }
  services::Escritorio& escritorio = Modelo().Formulario().Escritorio();
  PulsarActual(true);
  services::Widget* abierto = escritorio.Foco();
  if (!abierto || abierto == &Modelo()) return true;
  for (const char32_t caracter : caracteres) services::entrada::Escribir(*abierto, caracter);
  return true;
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
  services::entrada::LlevarCelda(rejilla, fila, rejilla.Col);
  return true;
}

}  // namespace qt
