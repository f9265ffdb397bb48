#include "anfitrion/formulario.h"

namespace anfitrion {
namespace {

constexpr int kNormal = 0;
constexpr int kMinimizada = 1;
constexpr int kMaximizada = 2;

}  // namespace

services::Rectangulo Formulario::Geometria() noexcept {
  if (!ventana_) return {};
  const QPoint lugar = ventana_->mapToGlobal(QPoint());
  return {lugar.x() * services::kTwips, lugar.y() * services::kTwips,
          ventana_->width() * services::kTwips, ventana_->height() * services::kTwips};
}

std::int32_t Formulario::WindowState() noexcept {
  if (!ventana_) return kNormal;
  const QWidget* ventana = ventana_->window();
  if (ventana->isMinimized()) return kMinimizada;
  return ventana->isMaximized() ? kMaximizada : kNormal;
}

void Formulario::PonerWindowState(std::int32_t estado) noexcept {
  if (!ventana_ || estado == WindowState()) return;
  QWidget* ventana = ventana_->window();
  if (estado == kMinimizada) return ventana->showMinimized();
  if (estado == kMaximizada) return ventana->showMaximized();
  ventana->showNormal();
}

void Formulario::Refresh() noexcept {
  if (ventana_) ventana_->update();
}

void Formulario::Contar(std::int32_t cuantos) noexcept {
  if (ventana_ && alContar_) alContar_(cuantos);
}

}  // namespace anfitrion
