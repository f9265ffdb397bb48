#pragma once

#include <QPointer>
#include <QWidget>

#include "services/anfitrion.h"

namespace anfitrion {

/// A widget of the suite as the form that its components know.
class Formulario final : public services::ObjetoContado<services::IForm> {
 public:
  explicit Formulario(QWidget& ventana) : ventana_(&ventana) {}

  services::Rectangulo Geometria() noexcept override;
  std::int32_t WindowState() noexcept override;
  void PonerWindowState(std::int32_t estado) noexcept override;
  void Refresh() noexcept override;
  void* VentanaNativa() noexcept override { return ventana_.data(); }

 private:
  QPointer<QWidget> ventana_;
};

}  // namespace anfitrion
