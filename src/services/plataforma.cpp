#include "services/plataforma.h"

#include <utility>

namespace services {
namespace {

Plataforma& Hueco() {
  static Plataforma plataforma;
  return plataforma;
}

}  // namespace

void InstalarPlataforma(Plataforma plataforma) {
  Hueco() = std::move(plataforma);
}

const Plataforma& PlataformaInstalada() {
  if (!Hueco().CrearVentana) {
    throw ErrorEjecucion(error::ObjetoNoEstablecido, "No hay plataforma instalada");
  }
  return Hueco();
}

}  // namespace services
