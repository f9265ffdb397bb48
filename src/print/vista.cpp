#include "print/vista.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace print::vista {

std::optional<int> AltoEnPantalla(std::string_view zoom, const Medida& pagina, int vista) {
  if (zoom == kEncajar) return vista;
  if (zoom == kEntera) return pagina.Alto;
  if (zoom == kMitad) return pagina.Alto * 50 / 100;
  return std::nullopt;
}

int Siguiente(const std::vector<int>& altos, int actual, int pasos) {
  std::vector<int> orden(altos.size());
  std::iota(orden.begin(), orden.end(), 0);
  const auto alto = [&](int cual) { return altos[static_cast<std::size_t>(cual)]; };
  std::stable_sort(orden.begin(), orden.end(), [&](int a, int b) { return alto(a) < alto(b); });
  const auto donde = std::find(orden.begin(), orden.end(), actual) - orden.begin();
  const auto ultimo = static_cast<std::ptrdiff_t>(orden.size()) - 1;
  return orden[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(donde + pasos, 0, ultimo))];
}

int AnchoEnPantalla(const Medida& pagina, int alto) {
  return static_cast<int>(std::lround(static_cast<double>(alto) * pagina.Ancho / pagina.Alto));
}

int Pasos(int alto, int vista) {
  if (vista <= 0) return 0;
  return static_cast<int>((alto - vista) / (vista / 10.0));
}

int Desplazado(int paso, int pasos, int alto, int vista) {
  if (paso == pasos) return alto - vista;
  if (paso == 0) return 0;
  return static_cast<int>(static_cast<long long>(vista) * paso / 10);
}

}  // namespace print::vista
