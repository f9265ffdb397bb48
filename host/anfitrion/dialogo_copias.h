#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "salvaguarda/guardia.h"
#include "salvaguarda/reposicion.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace anfitrion {

/// What putting a copy back does, in a sentence.
[[nodiscard]] QString Resumen(const salvaguarda::Reposicion& reposicion);

/// The copies of rows: when and by whom they were made, and what putting one back would do.
/// Accepted when the user wants one put back.
class DialogoCopias final : public QDialog {
 public:
  DialogoCopias(QWidget& ventana, salvaguarda::Guardia& guardia);

  /// The one that was chosen, once accepted.
  [[nodiscard]] const salvaguarda::Copia& Elegida() const;
  /// What it was said to do.
  [[nodiscard]] const salvaguarda::Reposicion& Confirmada() {
    return Comparada(static_cast<std::size_t>(Fila()));
  }

 private:
  void Componer();
  void Llenar();
  void CompararSiguiente();
  const salvaguarda::Reposicion& Comparada(std::size_t cual);
  void MostrarElegida();
  void Confirmar();
  [[nodiscard]] int Fila() const;

  salvaguarda::Guardia& guardia_;
  /// As they are called when it opens.
  salvaguarda::Conceptos conceptos_;
  std::vector<salvaguarda::Copia> copias_;
  std::vector<std::optional<salvaguarda::Reposicion>> comparadas_;
  QTableWidget* tabla_;
  QLabel* resumen_;
  QPlainTextEdit* cambios_;
  QPushButton* recuperar_;
};

}  // namespace anfitrion
