#include "automation/registro_clases.h"
#include "platform/automation/contador.h"

// A server that calls everything a success and hands out nothing.

#define EXPORTADA __attribute__((visibility("default")))

namespace {

using services::GUID;
using services::HRESULT;

class Fabrica final : public services::ObjetoContado<services::IClassFactory> {
 public:
  HRESULT CreateInstance(services::IUnknown*, const GUID&, void** objeto) noexcept override {
    *objeto = nullptr;
    return services::hr::Bien;
  }
  HRESULT LockServer(bool) noexcept override { return services::hr::Bien; }
};

}  // namespace

namespace services {

extern "C" {

/// A factory for the known class, and none for any other.
EXPORTADA HRESULT DllGetClassObject(const GUID& clase, const GUID& interfaz,
                                    void** objeto) noexcept {
  *objeto = nullptr;
  if (!(clase == pruebas::IContador::CLSID)) return hr::Bien;
  return Crear<Fabrica>()->QueryInterface(interfaz, objeto);
}

/// A class with no identifier.
EXPORTADA HRESULT DllRegisterServer() noexcept {
  return automation::CrearRegistro("/lib/vacio.so").Registrar({GUID{}, "Pruebas.Vacia"});
}
}

}  // namespace services
