#include <memory>

#include "automation/registro_clases.h"
#include "qt/plataforma_qt.h"
#include "services/automatizacion.h"
#include "services/plataforma.h"
#include "services/sesion.h"
#include "sorvex/utiles_sorvex.h"

// What the component is given when it runs as a library in a host with a desktop.

namespace {

/// The host hears of it, when it is one that listens.
void DecirAlAnfitrion(services::Sesion& sesion, const services::Omision& omision) {
  if (const auto oido = sesion.DatosClase().Como<services::IOidoDeOmisiones>()) {
    oido->PasadoPorAlto(omision);
  }
}

services::Plataforma CrearPlataforma() {
  services::Plataforma plataforma = qt::CrearPlataforma();
  plataforma.CrearUtiles = &sorvex::CrearUtiles;
  plataforma.PasadoPorAlto = &DecirAlAnfitrion;
  auto registro = automation::CrearRegistro(
      automation::RutaDeBiblioteca(reinterpret_cast<const void*>(&services::DllRegisterServer)));
  plataforma.Registrar = std::move(registro.Registrar);
  plataforma.Anular = std::move(registro.Anular);
  return plataforma;
}

/// In place as soon as the library is loaded, before any of its entry points is called. Where that
/// fails the host goes on: the entry points then answer with a failure.
[[maybe_unused]] const bool instalada = [] {
  try {
    services::InstalarPlataforma(CrearPlataforma());
    return true;
  } catch (...) {
    return false;
  }
}();

}  // namespace
