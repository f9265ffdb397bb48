#include "shell/imprenta_de_sesion.h"

namespace shell {

/// The user may be asked for a file, or told that the report goes to another printer.
std::unique_ptr<services::DestinoInforme> ImprentaDeSesion::AbrirImpresora(
    const services::TrabajoDeImpresion& trabajo) {
  std::unique_ptr<services::DestinoInforme> destino;
  escritorio_.Esperar([&] { destino = plataforma_.AbrirImpresora(trabajo); });
  return destino;
}

std::unique_ptr<services::Avance> ImprentaDeSesion::CrearAvance(const std::string& titulo) {
  return plataforma_.CrearAvance ? plataforma_.CrearAvance(titulo) : nullptr;
}

}  // namespace shell
