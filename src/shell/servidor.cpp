#include <atomic>

#include "services/anfitrion.h"
#include "services/automatizacion.h"
#include "services/plataforma.h"
#include "shell/class_tesvara.h"
#include "shell/datos_comunes.h"

// The four entry points of the in-process server.

namespace {

using services::GUID;
using services::HRESULT;
namespace hr = services::hr;

/// Locks of the host, and class factories that it holds.
std::atomic<int> bloqueos{0};

/// The session of the process and its screens, made at their first use and never destroyed: what
/// they keep belongs to a host that may be gone by then.
struct Proceso {
  shell::DatosComunes Datos{services::PlataformaInstalada()};
  shell::Pantallas Pantallas{Datos};
};

Proceso& ElProceso() {
  static auto& proceso = *new Proceso;
  return proceso;
}

std::atomic<bool> hayDatos{false};

class Fabrica final : public services::ObjetoContado<services::IClassFactory> {
 public:
  Fabrica() { ++bloqueos; }
  ~Fabrica() override { --bloqueos; }
  HRESULT CreateInstance(services::IUnknown* exterior, const GUID& interfaz,
                         void** objeto) noexcept override {
    if (!objeto) return hr::PunteroNulo;
    *objeto = nullptr;
    if (exterior) return hr::SinAgregacion;
    try {
      if (!ElProceso().Datos.EnSuHilo()) return hr::OtroHilo;
      const auto nuevo =
          services::Crear<shell::ClassTesvara>(ElProceso().Datos, ElProceso().Pantallas);
      hayDatos = true;
      return nuevo->QueryInterface(interfaz, objeto);
    } catch (...) {
      return hr::Fallo;
    }
  }
  HRESULT LockServer(bool bloquear) noexcept override {
    bloqueos += bloquear ? 1 : -1;
    return hr::Bien;
  }
};

template <class Operacion>
HRESULT ConPlataforma(Operacion operacion) noexcept {
  try {
    return operacion(
        services::PlataformaInstalada(),
        services::ClaseRegistrada{services::IClassTesvara::CLSID, services::IClassTesvara::ProgId,
                                  services::ModeloDeHilos::Unico});
  } catch (...) {
    return hr::Fallo;
  }
}

}  // namespace

namespace services {

HRESULT DllGetClassObject(const GUID& clase, const GUID& interfaz, void** objeto) noexcept {
  if (!objeto) return hr::PunteroNulo;
  *objeto = nullptr;
  if (!(clase == IClassTesvara::CLSID)) return hr::ClaseDesconocida;
  try {
    return Crear<Fabrica>()->QueryInterface(interfaz, objeto);
  } catch (...) {
    return hr::Fallo;
  }
}

HRESULT DllCanUnloadNow() noexcept {
  // The session keeps the host's objects for the life of the process: once there is one, the
  // library stays.
  return bloqueos == 0 && !hayDatos ? hr::Bien : hr::No;
}

HRESULT DllRegisterServer() noexcept {
  return ConPlataforma([](const Plataforma& plataforma, const ClaseRegistrada& clase) {
    return plataforma.Registrar(clase);
  });
}

HRESULT DllUnregisterServer() noexcept {
  return ConPlataforma([](const Plataforma& plataforma, const ClaseRegistrada& clase) {
    return plataforma.Anular(clase);
  });
}

}  // namespace services
