#include "qt/vinculo_texto.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include "forms/entrada.h"
#include "qt/lienzo.h"
#include "qt/textos_qt.h"

namespace qt {

using services::Aspecto;

VinculoTexto::VinculoTexto(services::TextBox& modelo, QLineEdit& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  if (vista.isReadOnly()) vista.setFocusPolicy(Qt::NoFocus);
  connect(&vista, &QLineEdit::selectionChanged, this, [this] { TomarSeleccion(); });
  connect(&vista, &QLineEdit::cursorPositionChanged, this, [this] { TomarSeleccion(); });
  connect(&vista, &QLineEdit::textChanged, this,
          [this](const QString& texto) { TomarTexto(texto); });
}

void VinculoTexto::MostrarPropio(Aspecto aspecto) {
  if (aspecto != Aspecto::Text && aspecto != Aspecto::Seleccion) return;
  if (tomando_) return;
  MostrarTexto();
  if (!Modelo().TieneFoco()) {
    historial_.Empezar(Vista().text());
  } else if (aspecto == Aspecto::Text) {
    historial_.Anotar(Vista().text());
  }
}

void VinculoTexto::MostrarTexto() {
  const QString texto = Texto(Modelo().Text());
  if (Vista().text() != texto) Vista().setText(texto);
  const int desde = Unidades(texto, Modelo().SelStart);
  const int hasta = Unidades(texto, Modelo().SelStart + Modelo().SelLength);
  if (desde == hasta) {
    if (Vista().hasSelectedText()) Vista().deselect();
    // Placed anew, the caret would end what an input method is composing.
    if (Vista().cursorPosition() != desde) Vista().setCursorPosition(desde);
  } else if (Vista().selectionStart() != desde || Vista().selectionEnd() != hasta) {
    Vista().setSelection(desde, hasta - desde);
  }
}

void VinculoTexto::TomarSeleccion() {
  if (!Atento() || Vista().text() != Texto(Modelo().Text())) return;
  const QString texto = Vista().text();
  const bool hay = Vista().hasSelectedText();
  const int desde = hay ? Vista().selectionStart() : Vista().cursorPosition();
  const int hasta = hay ? Vista().selectionEnd() : desde;
  // Start and length arrive one by one; shown in between, the selection would lose its direction.
  tomando_ = true;
  services::entrada::Seleccionar(Modelo(), Caracteres(texto, desde),
                                 Caracteres(texto, hasta) - Caracteres(texto, desde));
  tomando_ = false;
}

/// What reached the line edit by another way than keys, as from a screen reader or by dropping.
void VinculoTexto::TomarTexto(const QString& texto) {
  if (!Atento()) return;
  services::entrada::CambiarTexto(Modelo(), Utf8(texto));
  Mostrar(Aspecto::Text);
}

bool VinculoTexto::eventFilter(QObject* objeto, QEvent* evento) {
  if (Suelto() || Vista().isReadOnly()) return VinculoDe::eventFilter(objeto, evento);
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
      return PulsarRaton(static_cast<QMouseEvent&>(*evento));
    case QEvent::MouseMove:
      return !arrastre_;
    case QEvent::InputMethod:
      return Componer(static_cast<QInputMethodEvent&>(*evento));
    case QEvent::ContextMenu:
      return AbrirMenu(static_cast<QContextMenuEvent&>(*evento));
    default:
      return VinculoDe::eventFilter(objeto, evento);
  }
}

/// The click that brings the focus keeps what the model selected on its arrival; any other places
/// the caret.
bool VinculoTexto::PulsarRaton(QMouseEvent& evento) {
  if (evento.button() != Qt::LeftButton) return true;
  const bool llega = !Modelo().TieneFoco();
  services::entrada::Pulsar(Modelo());
  arrastre_ = !Suelto() && Modelo().TieneFoco() && !(llega && Modelo().SelLength > 0);
  return !arrastre_;
}

bool VinculoTexto::PulsarTecla(QKeyEvent& evento) {
  if (Vista().isReadOnly()) return false;
  if (Editar(evento)) return true;
  static constexpr QKeySequence::StandardKey kMovimientos[] = {
      QKeySequence::Copy,
      QKeySequence::MoveToNextWord,
      QKeySequence::MoveToPreviousWord,
      QKeySequence::MoveToStartOfLine,
      QKeySequence::MoveToEndOfLine,
      QKeySequence::SelectNextChar,
      QKeySequence::SelectPreviousChar,
      QKeySequence::SelectNextWord,
      QKeySequence::SelectPreviousWord,
      QKeySequence::SelectStartOfLine,
      QKeySequence::SelectEndOfLine,
  };
  for (const QKeySequence::StandardKey movimiento : kMovimientos) {
    // The line edit moves its caret, and tells of it.
    if (evento.matches(movimiento)) return false;
  }
  return VinculoDe::PulsarTecla(evento);
}

bool VinculoTexto::Editar(QKeyEvent& evento) {
  using Orden = void (VinculoTexto::*)();
  static constexpr std::pair<QKeySequence::StandardKey, Orden> kOrdenes[] = {
      {QKeySequence::Cut, &VinculoTexto::Cortar},
      {QKeySequence::Paste, &VinculoTexto::Pegar},
      {QKeySequence::Undo, &VinculoTexto::Deshacer},
      {QKeySequence::Redo, &VinculoTexto::Rehacer},
      {QKeySequence::SelectAll, &VinculoTexto::SeleccionarTodo},
  };
  for (const auto& [tecla, orden] : kOrdenes) {
    if (!evento.matches(tecla)) continue;
    (this->*orden)();
    return true;
  }
  if (evento.matches(QKeySequence::DeleteStartOfWord)) {
    BorrarHasta(&QLineEdit::cursorWordBackward);
    return true;
  }
  if (evento.matches(QKeySequence::DeleteEndOfWord)) {
    BorrarHasta(&QLineEdit::cursorWordForward);
    return true;
  }
  return false;
}

bool VinculoTexto::Componer(QInputMethodEvent& evento) {
  if (evento.commitString().isEmpty()) return false;
  QInputMethodEvent vacio;
  {
    Lienzo::Turno turno(Pantalla());
    Vista().event(&vacio);
  }
  Sustituir(evento.commitString());
  return true;
}

}  // namespace qt
