#include "automation/registro_clases.h"

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "valores/error.h"
#include "valores/texto.h"

namespace automation {
namespace {

using services::ErrorEjecucion;

[[noreturn]] void Fallar(const std::string& descripcion) {
  throw ErrorEjecucion(services::hr::Fallo, descripcion);
}

/// The folder that a variable of the environment names; only full paths count.
std::optional<std::filesystem::path> CarpetaDe(const char* variable) {
  const char* valor = std::getenv(variable);
  if (!valor || *valor != '/') return std::nullopt;
  return valor;
}

std::optional<Clase> LeerLinea(std::string_view linea) {
  const std::size_t primero = linea.find('\t');
  if (primero == std::string_view::npos) return std::nullopt;
  const std::size_t segundo = linea.find('\t', primero + 1);
  if (segundo == std::string_view::npos) return std::nullopt;
  const std::optional<services::GUID> clsid = LeerGuid(linea.substr(0, primero));
  if (!clsid) return std::nullopt;
  return Clase{*clsid, std::string(linea.substr(primero + 1, segundo - primero - 1)),
               std::string(linea.substr(segundo + 1))};
}

bool CabeEnUnaLinea(std::string_view texto) {
  return texto.find_first_of("\t\n") == std::string_view::npos;
}

template <class Accion>
services::HRESULT SinExcepciones(Accion&& accion) {
  try {
    accion();
    return services::hr::Bien;
  } catch (const std::exception&) {
    return services::hr::Fallo;
  }
}

}  // namespace

std::filesystem::path FicheroDeClases() {
  std::optional<std::filesystem::path> datos = CarpetaDe("XDG_DATA_HOME");
  if (!datos) {
    const std::optional<std::filesystem::path> casa = CarpetaDe("HOME");
    if (!casa) Fallar("No se sabe cuál es la carpeta de datos del usuario");
    datos = *casa / ".local" / "share";
  }
  return *datos / "tesvara" / "clases.tsv";
}

Registro::Registro(std::filesystem::path fichero) : fichero_(std::move(fichero)) {}

std::vector<Clase> Registro::Clases() const {
  std::ifstream entrada(fichero_);
  std::vector<Clase> clases;
  for (std::string linea; std::getline(entrada, linea);) {
    if (std::optional<Clase> clase = LeerLinea(linea)) clases.push_back(std::move(*clase));
  }
  return clases;
}

std::optional<Clase> Registro::Buscar(std::string_view progId) const {
  for (Clase& clase : Clases()) {
    if (services::MismoTexto(clase.ProgId, progId)) return std::move(clase);
  }
  return std::nullopt;
}

void Registro::Poner(const Clase& clase) const {
  if (!CabeEnUnaLinea(clase.ProgId) || !CabeEnUnaLinea(clase.Biblioteca)) {
    Fallar("Hay un tabulador o un fin de línea en la clase o en la ruta de su biblioteca");
  }
  std::vector<Clase> clases = Clases();
  std::erase_if(clases, [&](const Clase& otra) {
    return otra.Clsid == clase.Clsid || services::MismoTexto(otra.ProgId, clase.ProgId);
  });
  clases.push_back(clase);
  Escribir(clases);
}

void Registro::Quitar(const services::GUID& clsid) const {
  std::vector<Clase> clases = Clases();
  if (std::erase_if(clases, [&](const Clase& clase) { return clase.Clsid == clsid; }) == 0) return;
  Escribir(clases);
}

void Registro::Escribir(const std::vector<Clase>& clases) const {
  std::error_code fallo;
  std::filesystem::create_directories(fichero_.parent_path(), fallo);
  const std::filesystem::path nuevo = fichero_.string() + "." + std::to_string(getpid());
  std::ofstream salida(nuevo, std::ios::trunc);
  for (const Clase& clase : clases) {
    salida << TextoDeGuid(clase.Clsid) << '\t' << clase.ProgId << '\t' << clase.Biblioteca << '\n';
  }
  salida.close();
  if (salida) std::filesystem::rename(nuevo, fichero_, fallo);
  if (salida && !fallo) return;
  std::filesystem::remove(nuevo, fallo);
  Fallar("No se puede escribir la lista de clases " + fichero_.string());
}

FuncionesDeRegistro CrearRegistro(const std::filesystem::path& biblioteca) {
  return {[biblioteca](const services::ClaseRegistrada& clase) {
            return SinExcepciones([&] {
              Registro().Poner({clase.Clsid, clase.ProgId, biblioteca.string()});
            });
          },
          [](const services::ClaseRegistrada& clase) {
            return SinExcepciones([&] { Registro().Quitar(clase.Clsid); });
          }};
}

std::filesystem::path RutaDeBiblioteca(const void* direccion) {
  Dl_info donde{};
  if (dladdr(direccion, &donde) == 0 || !donde.dli_fname) {
    Fallar("No se sabe de qué biblioteca es el código que se registra");
  }
  return std::filesystem::weakly_canonical(donde.dli_fname);
}

}  // namespace automation
