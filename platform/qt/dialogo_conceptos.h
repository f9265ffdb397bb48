#pragma once

#include <QDialog>
#include <QRect>

#include "qt/lista_conceptos.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace qt {

class TablaQt;

/// The concept search: a line to type in and, below it, the concepts that it leaves. Enter takes
/// the current one, Escape none. A text that is no number is no code: it is looked for in the
/// names, whatever was asked for.
class DialogoConceptos final : public QDialog {
 public:
  DialogoConceptos(std::vector<Concepto> conceptos, bool porCodigo, const QString& texto,
                   QWidget* padre);

  /// Code of the concept chosen.
  [[nodiscard]] QString Elegido() const;

  /// A part of the desktop that it leaves on sight when it is shown, besides what has the focus.
  void Descubrir(const QRect& parte) { descubierto_ = parte; }

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void showEvent(QShowEvent* evento) override;

 private:
  void Componer();
  void Conectar();
  void UnaSolaParada();
  void Filtrar();

  ListaConceptos* lista_;
  QLineEdit* busqueda_;
  QRadioButton* por_codigo_;
  QRadioButton* por_nombre_;
  TablaQt* tabla_;
  QLabel* cuantos_;
  QPushButton* aceptar_;
  QPushButton* cancelar_;
  QRect descubierto_;
};

}  // namespace qt
