#include "print/vista.h"

#include <cmath>

namespace print::vista {

int AltoEnPantalla(std::string_view zoom, const Medida& pagina, int vista) {
  if (zoom == kEncajar) return vista;
  if (zoom == kEntera) return pagina.Alto;
  if (zoom == kMitad) return pagina.Alto * 50 / 100;
  return 0;
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
