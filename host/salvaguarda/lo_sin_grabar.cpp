#include "salvaguarda/lo_sin_grabar.h"

namespace salvaguarda {

double LoSinGrabar::Escrituras() {
  return deTrabajo_->Consultar("SELECT total_changes()").Filas.En(0, 0).Numero();
}

void LoSinGrabar::DarPorVisto() {
  vistas_ = Escrituras();
}

}  // namespace salvaguarda
