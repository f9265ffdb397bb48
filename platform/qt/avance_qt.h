#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

#include "services/imprenta.h"

namespace qt {

/// A work under way, told to the user once it has taken half a second. Until then nothing is asked
/// of the windows; from then on nothing but its button can be pressed.
class AvanceQt final : public services::Avance {
 public:
  explicit AvanceQt(const std::string& titulo);

  [[nodiscard]] bool Toca() override;
  [[nodiscard]] bool Seguir(int hechos, int total) override;

 private:
  QString titulo_;
  QProgressDialog caja_;
  QElapsedTimer desdeElPrincipio_;
  QElapsedTimer desdeLaUltima_;
};

}  // namespace qt
