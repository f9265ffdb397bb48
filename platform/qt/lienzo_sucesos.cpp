#include "qt/lienzo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>

#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "qt/centrado.h"
#include "qt/colores.h"
#include "qt/medidas.h"
#include "qt/teclas_qt.h"
#include "qt/vinculo.h"

// What the toolkit tells the surface of a screen, handed on to the screen.

namespace qt {

bool Lienzo::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == marco_ && evento->type() == QEvent::Resize) setGeometry(marco_->rect());
  return QWidget::eventFilter(objeto, evento);
}

void Lienzo::changeEvent(QEvent* evento) {
  if (evento->type() == QEvent::ApplicationPaletteChange) {
    setPalette(Legible(QApplication::palette()));
  }
  if (evento->type() == QEvent::PaletteChange) {
    for (const auto& [modelo, vinculo] : vinculos_) vinculo->Mostrar(services::Aspecto::BackColor);
  }
  // In a window of its own the focus shows from the start, without a key to bring it to sight.
  if (evento->type() == QEvent::ActivationChange && isWindow()) {
    setAttribute(Qt::WA_KeyboardFocusChange);
    update();
  }
  QWidget::changeEvent(evento);
}

void Lienzo::paintEvent(QPaintEvent* evento) {
  QWidget::paintEvent(evento);
  Avisar(&Lienzo::Pintado, pintado_pedido_);
}

void Lienzo::resizeEvent(QResizeEvent* evento) {
  QWidget::resizeEvent(evento);
  CentrarPaneles(*this, FinDeLaBarra());
  Avisar(&Lienzo::Redimensionado, tamano_pedido_);
}

/// The handler runs once the toolkit is done: it may show a message, and what it changes would be
/// painted from inside a painting.
void Lienzo::Avisar(Suceso suceso, bool& pedido) {
  if (pedido || !form_) return;
  pedido = true;
  QTimer::singleShot(0, this, [this, suceso, &pedido] {
    // Asked for until it is done, and until what was changed meanwhile is painted: what a repaint
    // brings about, such as the host's own refreshing of the screen, would never end otherwise.
    const QPointer<Lienzo> vivo(this);
    if (services::Form* form = form_; form && form->Visible()) {
      form->Escritorio().Evento([&] { (this->*suceso)(*form); });
    }
    if (vivo) QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
    if (vivo) pedido = false;
  });
}

/// Where the design says so the model is as large as it is on the screen, and so are those of its
/// widgets that say so too: what it works out for itself fits then.
void Lienzo::Medir(services::Form& form) {
  if (!property("medidaReal").toBool()) return;
  form.Width = width() * services::kTwips;
  form.Height = height() * services::kTwips;
  for (const auto& [modelo, vinculo] : vinculos_) vinculo->Medir();
}

void Lienzo::Redimensionado(services::Form& form) {
  Medir(form);
  form.Form_Resize();
}

/// A failure is told once until a repaint goes well again: its message, as it comes and goes, has
/// the screen behind it repainted, and the user would never get past it.
void Lienzo::Pintado(services::Form& form) {
  const bool yaDicho = std::exchange(pintado_fallido_, true);
  const QPointer<Lienzo> vivo(this);
  try {
    form.Form_Paint();
  } catch (...) {
    if (!yaDicho) throw;
    return;
  }
  if (vivo) pintado_fallido_ = false;
}

int Lienzo::FinDeLaBarra() const {
  const services::Cintilla* barra = form_ ? services::BarraDe(*form_) : nullptr;
  const Vinculo* vinculo = barra ? De(*barra) : nullptr;
  return vinculo && !vinculo->Vista().isHidden() ? vinculo->Vista().geometry().bottom() + 1 : 0;
}

/// Closing the window is asked of the screen, which may refuse.
void Lienzo::closeEvent(QCloseEvent* evento) {
  evento->ignore();
  if (!form_) return;
  services::Cintilla* barra = services::BarraDe(*form_);
  if (barra && barra->Cerrar) return services::entrada::CerrarBarra(*barra);
  // Some desktops show the button all the same: it is not to be a dead one.
  services::entrada::Cancelar(*form_);
}

/// While nothing of the model has the focus the bare surface has the toolkit's.
void Lienzo::keyPressEvent(QKeyEvent* evento) {
  if (RecorrerYAcercar(*evento)) return;
  const bool escape = teclado::Codigo(*evento) == services::tecla::Escape;
  if (!escape || !form_ || window()->focusWidget() != this) return QWidget::keyPressEvent(evento);
  services::entrada::Cancelar(*form_);
}

/// Keys that nobody has taken, in a screen whose design names its bar in the property `barra`:
/// those that go by pages move it. In any other screen they are the host's.
bool Lienzo::RecorrerYAcercar(QKeyEvent& evento) {
  if (!form_ || !property("barra").isValid()) return false;
  if (const int pasos = teclado::PasosDeZoom(evento)) {
    services::entrada::Acercar(*form_, pasos);
    return true;
  }
  QWidget* barra = Vista(property("barra").toString());
  if (!barra || !barra->isVisible() || teclado::CodigoDeLista(evento) == 0) return false;
  return QCoreApplication::sendEvent(barra, &evento);
}

void Lienzo::wheelEvent(QWheelEvent* evento) {
  const int giro = evento->angleDelta().y();
  const bool acerca = giro != 0 && (evento->modifiers() & Qt::ControlModifier) != 0;
  if (!form_ || !acerca || !property("barra").isValid()) return QWidget::wheelEvent(evento);
  // A touchpad tells a notch of the wheel in many small steps.
  giro_ = (giro_ < 0) == (giro < 0) ? giro_ + giro : giro;
  const int muescas = giro_ / QWheelEvent::DefaultDeltasPerStep;
  giro_ -= muescas * QWheelEvent::DefaultDeltasPerStep;
  if (muescas != 0) services::entrada::Acercar(*form_, muescas);
}

/// The Tab key goes by the model's order. The toolkit also asks this when it hides what has the
/// focus, which is no business of the user's.
bool Lienzo::focusNextPrevChild(bool siguiente) {
  if (!form_ || Mostrando()) return true;
  // Told so, the toolkit marks what has the focus for who works by keyboard.
  motivo_ = siguiente ? Qt::TabFocusReason : Qt::BacktabFocusReason;
  services::entrada::Tabular(*form_, !siguiente);
  if (form_) LlevarFoco();
  motivo_ = Qt::OtherFocusReason;
  return true;
}

}  // namespace qt
