#include <atomic>

#include "automation/registro_clases.h"
#include "platform/automation/contador.h"

#define EXPORTADA __attribute__((visibility("default")))

namespace {

using pruebas::IContador;
using services::GUID;
using services::HRESULT;

std::atomic<int> vivos{0};

class Contador final : public services::ObjetoContado<IContador> {
 public:
  Contador() { ++vivos; }
  ~Contador() override { --vivos; }
  int Siguiente() noexcept override { return ++cuenta_; }

 private:
  int cuenta_ = 0;
};

class Fabrica final : public services::ObjetoContado<services::IClassFactory> {
 public:
  HRESULT CreateInstance(services::IUnknown* exterior, const GUID& interfaz,
                         void** objeto) noexcept override {
    if (exterior) return services::hr::SinAgregacion;
    return services::Crear<Contador>()->QueryInterface(interfaz, objeto);
  }
  HRESULT LockServer(bool) noexcept override { return services::hr::Bien; }
};

automation::FuncionesDeRegistro Funciones() {
  return automation::CrearRegistro(
      automation::RutaDeBiblioteca(reinterpret_cast<const void*>(&services::DllRegisterServer)));
}

const services::ClaseRegistrada kClase{IContador::CLSID, IContador::ProgId};

}  // namespace

namespace services {

extern "C" {

EXPORTADA HRESULT DllGetClassObject(const GUID& clase, const GUID& interfaz,
                                    void** objeto) noexcept {
  if (!(clase == IContador::CLSID)) return hr::ClaseDesconocida;
  return Crear<Fabrica>()->QueryInterface(interfaz, objeto);
}

EXPORTADA HRESULT DllCanUnloadNow() noexcept {
  return vivos == 0 ? hr::Bien : hr::No;
}

EXPORTADA HRESULT DllRegisterServer() noexcept {
  return Funciones().Registrar(kClase);
}

EXPORTADA HRESULT DllUnregisterServer() noexcept {
  return Funciones().Anular(kClase);
}
}

}  // namespace services
