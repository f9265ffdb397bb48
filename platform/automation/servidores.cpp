#include "automation/servidores.h"

#include <dlfcn.h>

#include <map>
#include <string>

#include "automation/registro_clases.h"

namespace automation {
namespace {

using services::ErrorEjecucion;
using services::HRESULT;

/// The libraries loaded here, by their full path.
std::map<std::string, void*>& Cargadas() {
  static std::map<std::string, void*> cargadas;
  return cargadas;
}

void* Cargar(const std::filesystem::path& biblioteca) {
  const std::string ruta = std::filesystem::weakly_canonical(biblioteca).string();
  void*& cargada = Cargadas()[ruta];
  if (!cargada) cargada = dlopen(ruta.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (cargada) return cargada;
  const char* motivo = dlerror();
  Cargadas().erase(ruta);
  throw ErrorEjecucion(error::SinBiblioteca, "No se puede cargar la biblioteca " + ruta + ": " +
                                                 (motivo ? motivo : "sin motivo conocido"));
}

/// An entry point of a loaded library; `Funcion` is its declaration's type.
template <class Funcion>
Funcion* Entrada(void* biblioteca, const char* nombre) {
  void* direccion = dlsym(biblioteca, nombre);
  if (!direccion) {
    throw ErrorEjecucion(error::SinEntrada,
                         std::string("La biblioteca no exporta la función ") + nombre);
  }
  return reinterpret_cast<Funcion*>(direccion);
}

void Exigir(HRESULT resultado, const std::string& que) {
  if (services::hr::Fallido(resultado)) throw ErrorEjecucion(resultado, que);
}

bool SePuedeDescargar(void* biblioteca) {
  void* direccion = dlsym(biblioteca, "DllCanUnloadNow");
  if (!direccion) return true;
  const auto puede = reinterpret_cast<decltype(services::DllCanUnloadNow)*>(direccion);
  return puede() == services::hr::Bien;
}

services::Ref<services::IClassFactory> PedirFabrica(const Clase& clase) {
  void* biblioteca = Cargar(clase.Biblioteca);
  auto* pedir = Entrada<decltype(services::DllGetClassObject)>(biblioteca, "DllGetClassObject");
  void* fabrica = nullptr;
  Exigir(pedir(clase.Clsid, services::IClassFactory::IID, &fabrica),
         "La biblioteca " + clase.Biblioteca + " no ofrece la clase " + clase.ProgId);
  return services::Ref<services::IClassFactory>::Adoptar(
      static_cast<services::IClassFactory*>(fabrica));
}

}  // namespace

void RegistrarBiblioteca(const std::filesystem::path& biblioteca) {
  auto* registrar =
      Entrada<decltype(services::DllRegisterServer)>(Cargar(biblioteca), "DllRegisterServer");
  Exigir(registrar(), "La biblioteca " + biblioteca.string() + " no ha podido registrarse");
}

void AnularBiblioteca(const std::filesystem::path& biblioteca) {
  auto* anular =
      Entrada<decltype(services::DllUnregisterServer)>(Cargar(biblioteca), "DllUnregisterServer");
  Exigir(anular(), "La biblioteca " + biblioteca.string() + " no ha podido anular su registro");
}

void* CrearObjeto(std::string_view progId, const services::GUID& interfaz) {
  const std::optional<Clase> clase = Registro().Buscar(progId);
  if (!clase) {
    throw ErrorEjecucion(error::ClaseNoRegistrada,
                         "La clase " + std::string(progId) + " no está registrada");
  }
  const auto fabrica = PedirFabrica(*clase);
  void* objeto = nullptr;
  Exigir(fabrica->CreateInstance(nullptr, interfaz, &objeto),
         "No se puede crear un objeto de la clase " + clase->ProgId);
  return objeto;
}

std::size_t LiberarBibliotecas() {
  return std::erase_if(Cargadas(), [](const auto& cargada) {
    return SePuedeDescargar(cargada.second) && dlclose(cargada.second) == 0;
  });
}

}  // namespace automation
