#pragma once

#include <QPrinter>

#include "qt/papel_qt.h"
#include "qt/rollo.h"

namespace qt {

/// How a sheet is laid on a paper, both in twips: as it is where the printer reaches all that the
/// paper has of it, else shrunk evenly and in the middle, so that nothing of it is lost and it
/// stands as the preview shows it. `alcance` is what the printer reaches of the paper.
[[nodiscard]] QTransform Encajar(const QRectF& hoja, const QRectF& alcance);

/// A report on a printer of the system. The toolkit can't take back what was begun on one: it gets
/// nothing before the report is whole.
class ImpresoraQt final : public PapelQt {
 public:
  /// Throws 482 when the printer isn't there.
  ImpresoraQt(const QString& nombre, const QString& titulo);

  void EndDoc() override;
  void KillDoc() override;

 protected:
  void Entregar(const services::LaminaInforme& hoja) override;

 private:
  void Imprimir();
  void ExigirSitio() const;
  void ExigirRollo(bool bien);
  void Exigir(bool bien, const QString& motivo) const;
  [[nodiscard]] QTransform Encaje() const;

  QString nombre_;
  QPrinter impresora_{QPrinter::HighResolution};
  Rollo rollo_;
  qint64 imagen_ = 0;  // bytes of the picture that its sheets share
  bool abierta_ = true;
};

}  // namespace qt
