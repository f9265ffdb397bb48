#include "automation/servidores.h"

#include <dlfcn.h>

#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "automation/registro_clases.h"

namespace automation {
namespace {

using services::ErrorEjecucion;
using services::HRESULT;

struct Cargada {
  void* Biblioteca;
  std::thread::id Hilo;
};

/// The libraries loaded here, by their full path.
struct Cargadas {
  std::recursive_mutex Turno;
  std::map<std::string, Cargada> PorRuta;
};
Cargadas& LasCargadas() {
  static Cargadas cargadas;
  return cargadas;
}

/// For as long as code of a library runs that has no object out yet: another thread may let the
/// libraries go. It is recursive: a library may load another as it is loaded itself.
std::lock_guard<std::recursive_mutex> SinSoltarlas() {
  return std::lock_guard(LasCargadas().Turno);
}

/// With the turn held.
Cargada Cargar(const std::filesystem::path& biblioteca) {
  const std::string ruta = std::filesystem::weakly_canonical(biblioteca).string();
  auto& porRuta = LasCargadas().PorRuta;
  if (const auto ya = porRuta.find(ruta); ya != porRuta.end()) return ya->second;
  if (void* nueva = dlopen(ruta.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    return porRuta.insert_or_assign(ruta, Cargada{nueva, std::this_thread::get_id()}).first->second;
  }
  const char* motivo = dlerror();
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

/// With the turn held.
services::Ref<services::IClassFactory> PedirFabrica(const Clase& clase) {
  const auto [biblioteca, hilo] = Cargar(clase.Biblioteca);
  if (clase.Hilos == services::ModeloDeHilos::Unico && hilo != std::this_thread::get_id()) {
    throw ErrorEjecucion(error::OtroHilo, "La clase " + clase.ProgId +
                                              " sólo se puede usar desde el hilo que cargó su "
                                              "biblioteca");
  }
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
  const auto turno = SinSoltarlas();
  auto* registrar = Entrada<decltype(services::DllRegisterServer)>(Cargar(biblioteca).Biblioteca,
                                                                   "DllRegisterServer");
  ComprobarLista();
  Exigir(registrar(), "La biblioteca " + biblioteca.string() +
                          " no ha podido registrarse en la lista de clases " +
                          FicheroDeClases().string());
}

void AnularBiblioteca(const std::filesystem::path& biblioteca) {
  const auto turno = SinSoltarlas();
  auto* anular = Entrada<decltype(services::DllUnregisterServer)>(Cargar(biblioteca).Biblioteca,
                                                                  "DllUnregisterServer");
  ComprobarLista();
  Exigir(anular(), "La biblioteca " + biblioteca.string() + " no ha podido anular su registro");
}

void* CrearObjeto(std::string_view progId, const services::GUID& interfaz) {
  const std::optional<Clase> clase = Registro().Buscar(progId);
  if (!clase) {
    throw ErrorEjecucion(error::ClaseNoRegistrada,
                         "La clase " + std::string(progId) + " no está registrada");
  }
  const auto turno = SinSoltarlas();
  const auto fabrica = PedirFabrica(*clase);
  void* objeto = nullptr;
  const HRESULT resultado = fabrica->CreateInstance(nullptr, interfaz, &objeto);
  return Exigir(resultado, objeto, "No se puede crear un objeto de la clase " + clase->ProgId);
}

std::size_t LiberarBibliotecas() {
  const auto turno = SinSoltarlas();
  return std::erase_if(LasCargadas().PorRuta, [](const auto& cargada) {
    void* biblioteca = cargada.second.Biblioteca;
    return SePuedeDescargar(biblioteca) && dlclose(biblioteca) == 0;
  });
}

}  // namespace automation
