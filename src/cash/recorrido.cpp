#include "cash/recorrido.h"

namespace cash::recorrido {

int ValorQueEnsena(int fila, int arribaDelPanel, int valor) {
  const int arriba = kSeparacion + fila * kPaso;
  const int abajo = arriba + 2 * kLinea + kSeparacion;
  const int vistoDesde = kArriba - arribaDelPanel;
  if (arriba < vistoDesde) return arriba / kPaso;
  if (abajo > vistoDesde + kVentana) return (abajo - kVentana + kPaso - 1) / kPaso;
  return valor;
}

}  // namespace cash::recorrido
