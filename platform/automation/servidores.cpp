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

/// What a call of a library handed out. One that calls null a success is taken for a failure.
void* Exigir(HRESULT resultado, void* objeto, const std::string& que) {
  Exigir(resultado, que);
  if (!objeto) throw ErrorEjecucion(services::hr::PunteroNulo, que);
  return objeto;
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
  const HRESULT resultado = pedir(clase.Clsid, services::IClassFactory::IID, &fabrica);
  return services::Ref<services::IClassFactory>::Adoptar(static_cast<services::IClassFactory*>(
      Exigir(resultado, fabrica,
             "La biblioteca " + clase.Biblioteca + " no ofrece la clase " + clase.ProgId)));
}

/// A library tells by a number alone that it couldn't write the list: what is wrong with it is said
/// here, before it is asked.
void ComprobarLista() {
  (void)Registro().Clases();
}

}  // namespace

void RegistrarBiblioteca(const std::filesystem::path& biblioteca) {
  auto* registrar =
      Entrada<decltype(services::DllRegisterServer)>(Cargar(biblioteca), "DllRegisterServer");
  ComprobarLista();
  Exigir(registrar(), "La biblioteca " + biblioteca.string() +
                          " no ha podido registrarse en la lista de clases " +
                          FicheroDeClases().string());
}

void AnularBiblioteca(const std::filesystem::path& biblioteca) {
  auto* anular =
      Entrada<decltype(services::DllUnregisterServer)>(Cargar(biblioteca), "DllUnregisterServer");
  ComprobarLista();
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
  const HRESULT resultado = fabrica->CreateInstance(nullptr, interfaz, &objeto);
  return Exigir(resultado, objeto, "No se puede crear un objeto de la clase " + clase->ProgId);
}

std::size_t LiberarBibliotecas() {
  return std::erase_if(Cargadas(), [](const auto& cargada) {
    return SePuedeDescargar(cargada.second) && dlclose(cargada.second) == 0;
  });
}

}  // namespace automation
