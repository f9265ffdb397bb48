#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>

#include "services/imprenta.h"

namespace qt {

/// A work under way, told to the user once it has taken half a second. Until then nothing is asked
/// of the windows; from then on nothing but its button can be pressed.
class AvanceQt final : public services::Avance {
 public:
  explicit AvanceQt(const std::string& titulo);
  ~AvanceQt() override { delete caja_; }
  AvanceQt(const AvanceQt&) = delete;
  AvanceQt& operator=(const AvanceQt&) = delete;

  [[nodiscard]] bool Toca() override;
  [[nodiscard]] bool Seguir(int hechos, int total) override;

 private:
  QString titulo_;
  /// Gone with the window that it lies over, which other events may take away.
  QPointer<QProgressDialog> caja_;
  QElapsedTimer desdeElPrincipio_;
  QElapsedTimer desdeLaUltima_;
};

}  // namespace qt
