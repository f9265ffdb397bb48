#pragma once

#include <QLineEdit>

#include "forms/controles.h"
#include "qt/historial.h"
#include "qt/vinculo.h"

class QContextMenuEvent;
class QInputMethodEvent;
class QMenu;
class QMouseEvent;

namespace qt {

/// A text box. The line edit never edits by itself: keys, pasting and the rest go to the model,
/// whose text, caret and selection are shown. A line edit designed read-only is read by eye alone;
/// one whose model is `Locked` can be gone to, and copied from.
class VinculoTexto final : public VinculoDe<services::TextBox, QLineEdit> {
 public:
  VinculoTexto(services::TextBox& modelo, QLineEdit& vista, Lienzo& lienzo);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  void MostrarColores() override { PintarCon(QPalette::Base, QPalette::Text); }
  bool PulsarTecla(QKeyEvent& evento) override;

 private:
  void MostrarTexto();
  void TomarSeleccion();
  void TomarTexto(const QString& texto);

  bool PulsarRaton(QMouseEvent& evento);
  bool Componer(QInputMethodEvent& evento);
  bool AbrirMenu(QContextMenuEvent& evento);
  void Accion(QMenu& menu, const char* rotulo, bool posible, void (VinculoTexto::*hacer)());

  bool Editar(QKeyEvent& evento);
  void Cortar();
  void Copiar();
  void Pegar();
  void Eliminar();
  void Deshacer();
  void Rehacer();
  void SeleccionarTodo();
  void BorrarHasta(void (QLineEdit::*extender)(bool));
  /// Puts a text in the place of the selection, with the caret behind it.
  void Sustituir(const QString& texto);
  void PonerTexto(const QString& texto, int cursor);

  /// What of a text that comes at once still fits.
  [[nodiscard]] QString LoQueCabe(const QString& texto) const;

  Historial historial_;
  bool inerte_;            // designed read-only
  bool arrastre_ = false;  // the pressed button selects text
  bool tomando_ = false;   // what the model tells is what was just shown
};

}  // namespace qt
