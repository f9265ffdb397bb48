#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "forms/entrada.h"
#include "qt/textos_qt.h"
#include "qt/vinculo_texto.h"

// What changes a text other than by typing.

namespace qt {

void VinculoTexto::Sustituir(const QString& texto) {
  if (Suelto()) return;
  const QString antes = Vista().text();
  const int desde = Vista().hasSelectedText() ? Vista().selectionStart() : Vista().cursorPosition();
  const int cuantas = Vista().hasSelectedText() ? Vista().selectionLength() : 0;
  QString nuevo = antes;
  nuevo.replace(desde, cuantas, texto);
  PonerTexto(nuevo, desde + static_cast<int>(texto.size()));
}

void VinculoTexto::PonerTexto(const QString& texto, int cursor) {
  services::entrada::CambiarTexto(Modelo(), Utf8(texto));
  // A handler may have made another text of it, or taken the focus elsewhere.
  if (Suelto() || !Modelo().TieneFoco() || Texto(Modelo().Text()) != texto) return;
  services::entrada::Seleccionar(Modelo(), Caracteres(texto, cursor), 0);
}

void VinculoTexto::Copiar() {
  if (Vista().hasSelectedText()) QApplication::clipboard()->setText(Vista().selectedText());
}

void VinculoTexto::Cortar() {
  if (!Vista().hasSelectedText()) return;
  Copiar();
  Sustituir(QString());
}

void VinculoTexto::Pegar() {
  const QString texto = QApplication::clipboard()->text().simplified();
  if (!texto.isEmpty()) Sustituir(texto);
}

void VinculoTexto::Eliminar() {
  if (Vista().hasSelectedText()) Sustituir(QString());
}

void VinculoTexto::Deshacer() {
  if (!historial_.HayAnterior()) return;
  const QString texto = historial_.Anterior();
  PonerTexto(texto, static_cast<int>(texto.size()));
}

void VinculoTexto::Rehacer() {
  if (!historial_.HaySiguiente()) return;
  const QString texto = historial_.Siguiente();
  PonerTexto(texto, static_cast<int>(texto.size()));
}

void VinculoTexto::SeleccionarTodo() {
  services::entrada::Seleccionar(Modelo(), 0, static_cast<int>(Vista().text().toUcs4().size()));
}

void VinculoTexto::BorrarHasta(void (QLineEdit::*extender)(bool)) {
  if (!Vista().hasSelectedText()) (Vista().*extender)(true);
  Eliminar();
}

void VinculoTexto::Accion(QMenu& menu, const QString& rotulo, QKeySequence::StandardKey tecla,
                          bool posible, void (VinculoTexto::*hacer)()) {
  QAction* accion = menu.addAction(rotulo, this, [this, hacer] {
    if (!Suelto()) (this->*hacer)();
  });
  accion->setShortcut(tecla);
  accion->setEnabled(posible);
}

bool VinculoTexto::AbrirMenu(QContextMenuEvent& evento) {
  if (!Modelo().TieneFoco()) services::entrada::Enfocar(Modelo());
  if (Suelto() || !Modelo().TieneFoco()) return true;
  const bool hay = Vista().hasSelectedText();
  QMenu menu(&Vista());
  Accion(menu, "Deshacer", QKeySequence::Undo, historial_.HayAnterior(), &VinculoTexto::Deshacer);
  Accion(menu, "Rehacer", QKeySequence::Redo, historial_.HaySiguiente(), &VinculoTexto::Rehacer);
  menu.addSeparator();
  Accion(menu, "Cortar", QKeySequence::Cut, hay, &VinculoTexto::Cortar);
  Accion(menu, "Copiar", QKeySequence::Copy, hay, &VinculoTexto::Copiar);
  Accion(menu, "Pegar", QKeySequence::Paste, !QApplication::clipboard()->text().isEmpty(),
         &VinculoTexto::Pegar);
  Accion(menu, "Eliminar", QKeySequence::Delete, hay, &VinculoTexto::Eliminar);
  menu.addSeparator();
  Accion(menu, "Seleccionar todo", QKeySequence::SelectAll, !Vista().text().isEmpty(),
         &VinculoTexto::SeleccionarTodo);
  menu.exec(evento.globalPos());
  return true;
}

}  // namespace qt
