#pragma once

#include <QPainter>

#include "services/destino_informe.h"

class QPagedPaintDevice;

namespace qt {

/// Puts sheets on the pages of a printer or a file, one after the other. Each step tells whether it
/// went well.
class Prensa {
 public:
  /// A twip is the unit of the device, which must outlive the painting. Every sheet is first moved
  /// by `encaje`.
  [[nodiscard]] bool Empezar(QPagedPaintDevice& papel, const QTransform& encaje = {});
  [[nodiscard]] bool Pintar(const services::LaminaInforme& hoja);
  [[nodiscard]] bool Acabar() { return pintor_.end(); }
  [[nodiscard]] bool EnMarcha() const { return pintor_.isActive(); }

 private:
  QPagedPaintDevice* papel_ = nullptr;
  bool primera_ = true;
  QPainter pintor_;
};

}  // namespace qt
