#include "guion/sesiones.h"

#include <algorithm>
#include <csignal>
#include <optional>
#include <utility>

#include "guion/ejecucion.h"

namespace guion {

Sesiones::Sesiones(const std::vector<Orden>& ordenes, Papel papel, std::ostream& errores)
    : ordenes_(ordenes), papel_(std::move(papel)), errores_(errores) {}

int Sesiones::Correr() {
  for (std::size_t i = 0; i < ordenes_.size() && estado_ != kNoSeEntiende; ++i) Jugar(i);
  Terminar();
  return estado_;
}

void Sesiones::Jugar(std::size_t cual) {
  const Orden& orden = ordenes_[cual];
  linea_ = orden.Linea;
  if (!procesos_.contains(orden.Sesion)) {
    procesos_.try_emplace(orden.Sesion,
                          [&](const Canal& linea) { return Vivir(orden.Sesion, linea); });
    Esperar(orden);
  }
  const auto suyo = procesos_.find(orden.Sesion);
  if (suyo == procesos_.end()) return;
  suyo->second.Linea().Mandar(static_cast<int>(cual));
  Esperar(orden);
}

int Sesiones::Vivir(int sesion, const Canal& linea) const {
  return papel_(sesion, [&](int estado) -> const Orden* {
    linea.Mandar(estado);
    const std::optional<int> cual = linea.Recibir();
    return cual ? &ordenes_[static_cast<std::size_t>(*cual)] : nullptr;
  });
}

void Sesiones::Esperar(const Orden& orden) {
  Proceso& suyo = procesos_.at(orden.Sesion);
  if (const std::optional<int> estado = suyo.Linea().Recibir()) {
    estado_ = std::max(estado_, *estado);
    return;
  }
  const Final final = suyo.Terminar();
  procesos_.erase(orden.Sesion);
  if (orden.Nombre != "matar" || final.Senal != SIGKILL) Romper(orden.Sesion, final);
}

void Sesiones::Terminar() {
  for (auto& [sesion, proceso] : procesos_) {
    const Final final = proceso.Terminar();
    if (final.Senal != 0 || final.Estado > kAlgunaFalla) Romper(sesion, final);
    estado_ = std::max(estado_, final.Estado);
  }
  procesos_.clear();
}

void Sesiones::Romper(int sesion, const Final& final) {
  estado_ = kNoSeEntiende;
  if (final.Senal == 0 && final.Estado == kNoSeEntiende) return;
  errores_ << "línea " << linea_ << ": la sesión " << sesion
           << (final.Senal != 0 ? " ha muerto por la señal " + std::to_string(final.Senal)
                                : " se ha ido con el estado " + std::to_string(final.Estado))
           << '\n';
}

}  // namespace guion
