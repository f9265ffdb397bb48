#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <algorithm>

#include "forms/entrada.h"
#include "qt/textos_qt.h"
#include "qt/vinculo_texto.h"

// What changes a text other than by typing.

namespace qt {

QString VinculoTexto::LoQueCabe(const QString& texto) const {
  if (Modelo().MaxLength <= 0) return texto;
  const auto largo = [](const QString& t) { return Caracteres(t, static_cast<int>(t.size())); };
  const int queda = largo(Vista().text()) - largo(Vista().selectedText());
  return texto.left(Unidades(texto, std::max(0, Modelo().MaxLength - queda)));
}

void VinculoTexto::Sustituir(const QString& entero) {
  if (Suelto() || Modelo().Locked) return;
  const QString texto = LoQueCabe(entero);
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

/// The key is part of the words: the toolkit would name it in the desktop's language.
void VinculoTexto::Accion(QMenu& menu, const char* rotulo, bool posible,
                          void (VinculoTexto::*hacer)()) {
  QAction* accion = menu.addAction(QString::fromUtf8(rotulo), this, [this, hacer] {
    if (!Suelto()) (this->*hacer)();
  });
  accion->setEnabled(posible);
}

bool VinculoTexto::AbrirMenu(QContextMenuEvent& evento) {
  if (!Modelo().TieneFoco()) services::entrada::Enfocar(Modelo());
  if (Suelto() || !Modelo().TieneFoco()) return true;
  const bool hay = Vista().hasSelectedText();
  const bool editable = !Modelo().Locked;
  QMenu menu(&Vista());
  const bool hayPegable = editable && !QApplication::clipboard()->text().isEmpty();
  Accion(menu, "Deshacer\tCtrl+Z", historial_.HayAnterior(), &VinculoTexto::Deshacer);
  Accion(menu, "Rehacer\tCtrl+Mayús+Z", historial_.HaySiguiente(), &VinculoTexto::Rehacer);
  menu.addSeparator();
  Accion(menu, "Cortar\tCtrl+X", hay && editable, &VinculoTexto::Cortar);
  Accion(menu, "Copiar\tCtrl+C", hay, &VinculoTexto::Copiar);
  Accion(menu, "Pegar\tCtrl+V", hayPegable, &VinculoTexto::Pegar);
  Accion(menu, "Eliminar\tSupr", hay && editable, &VinculoTexto::Eliminar);
  menu.addSeparator();
  Accion(menu, "Seleccionar todo\tCtrl+A", !Vista().text().isEmpty(),
         &VinculoTexto::SeleccionarTodo);
  menu.exec(evento.globalPos());
  return true;
}

}  // namespace qt
