#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "services/anfitrion.h"

namespace anfitrion {

/// A widget of the suite as the form that its components know.
class Formulario final
    : public services::ObjetoContado<services::IForm, services::IPagosSinGrabar> {
 public:
  using AlContar = std::function<void(int)>;

  /// `alContar` gets the number of payments that aren't saved, as long as the widget lives.
  explicit Formulario(QWidget& ventana, AlContar alContar = {})
      : ventana_(&ventana), alContar_(std::move(alContar)) {}

  services::Rectangulo Geometria() noexcept override;
  std::int32_t WindowState() noexcept override;
  void PonerWindowState(std::int32_t estado) noexcept override;
  void Refresh() noexcept override;
  void* VentanaNativa() noexcept override { return ventana_.data(); }

  void Contar(std::int32_t cuantos) noexcept override;

 private:
  QPointer<QWidget> ventana_;
  AlContar alContar_;
};

}  // namespace anfitrion
