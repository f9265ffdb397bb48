#pragma once

#include <QDialog>
#include <QRect>

#include "qt/lista_conceptos.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

namespace qt {

/// The concept search: a line to type in and, below it, the concepts that it leaves. Enter takes
/// the current one, Escape none.
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
  void Filtrar();

  ListaConceptos* lista_;
  QLineEdit* busqueda_;
  QRadioButton* por_codigo_;
  QRadioButton* por_nombre_;
  QTableView* tabla_;
  QLabel* cuantos_;
  QPushButton* aceptar_;
  QPushButton* cancelar_;
  QRect descubierto_;
};

}  // namespace qt
