#include "store/tramo.h"

#include <vector>

namespace store {
namespace {

using services::Omision;

std::vector<Omision::Campo> Campos(services::Recordset& fila) {
  std::vector<Omision::Campo> campos;
  for (std::size_t i = 0; i < fila.CuantosFields(); ++i) {
    const services::Recordset::Campo campo = fila.Fields(i);
    campos.push_back({campo.Name(), campo.Value});
  }
  return campos;
}

}  // namespace

void Tramo::Contar(const services::ErrorEjecucion& fallo) {
  const Falta falta = falta_;
  if (pendientes_) Paso(Falta::Nada, [this] { pendientes_->EscribirPendientes(); });
  const bool conFila = fila_ && fila_->State() && !fila_->Eof();
  sesion_.PasadoPorAlto(
      {tarea_, falta, tabla_, conFila ? Campos(*fila_) : std::vector<Omision::Campo>(), fallo});
}

}  // namespace store
