#include "salvaguarda/lo_sin_grabar.h"

namespace salvaguarda {

double LoSinGrabar::Escrituras() {
  return deTrabajo_->Consultar("SELECT total_changes()").Filas.En(0, 0).Numero();
}

void LoSinGrabar::DarPorVisto() {
  vistas_ = Escrituras();
}

std::optional<Rescate> LoSinGrabar::Mirar() {
  if (vistas_ == Escrituras()) return std::nullopt;
  // The engine attaches nothing to a transaction.
  deTrabajo_->TerminarUnidad();
  return BuscarRescate(*deTrabajo_, almacenados_, foto_);
}

}  // namespace salvaguarda
