#pragma once

#include <QPdfWriter>
#include <QSaveFile>
#include <QTemporaryFile>
#include <functional>
#include <optional>

#include "qt/papel_qt.h"
#include "qt/prensa.h"

namespace qt {

/// A report in a PDF file, which appears whole at `EndDoc` or not at all: until then, and when
/// anything fails, a file of that name stays as it was.
class InformePdf final : public PapelQt {
 public:
  /// Throws 482 when no file can be written there. `alGuardar` is called once it is written.
  InformePdf(const QString& fichero, const QString& titulo, std::function<void()> alGuardar = {});

  void EndDoc() override;
  void KillDoc() override;

 protected:
  void Entregar(const services::LaminaInforme& hoja) override;

 private:
  void AbrirDestino();
  void Acabar();
  void Cerrar();
  void Exigir(bool bien, QFileDevice& fichero) const;
  [[noreturn]] void Fallar(const QString& motivo) const;

  QString fichero_;
  std::function<void()> alGuardar_;
  std::optional<QSaveFile> destino_;
  QTemporaryFile borrador_;
  std::optional<QPdfWriter> escritor_;
  Prensa prensa_;
};

}  // namespace qt
