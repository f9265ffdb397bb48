#pragma once

#include <fstream>
#include <string>

namespace medidas {

/// Kilobytes that the process takes (`VmRSS`), or has taken at most (`VmHWM`).
inline double Memoria(const std::string& cual) {
  std::ifstream estado("/proc/self/status");
  for (std::string clave; estado >> clave;) {
    double cuanto = 0;
    if (clave == cual + ":" && estado >> cuanto) return cuanto;
  }
  return 0;
}

/// What an action takes at most beyond what there was.
template <class Accion>
[[nodiscard]] double MemoriaDe(const Accion& accion) {
  std::ofstream("/proc/self/clear_refs") << "5";
  const double antes = Memoria("VmRSS");
  accion();
  return Memoria("VmHWM") - antes;
}

}  // namespace medidas
