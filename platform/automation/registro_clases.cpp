#include "automation/registro_clases.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "valores/error.h"
#include "valores/texto.h"

namespace automation {
namespace {

using services::ErrorEjecucion;
using services::ModeloDeHilos;

constexpr std::string_view kHiloUnico = "unico";
constexpr std::string_view kHiloLibre = "libre";
/// Of no class.
constexpr services::GUID kSinGuid{};

[[noreturn]] void Fallar(const std::string& descripcion) {
  throw ErrorEjecucion(services::hr::Fallo, descripcion);
}

/// The folder that a variable of the environment names; only full paths count.
std::optional<std::filesystem::path> CarpetaDe(const char* variable) {
  const char* valor = std::getenv(variable);
  if (!valor || *valor != '/') return std::nullopt;
  return valor;
}

using Lineas = std::vector<std::string>;

/// Lines may end as other systems end them, and a mark of the encoding may come before the first.
Lineas LineasDe(std::string_view texto) {
  constexpr std::string_view kMarca = "\xEF\xBB\xBF";
  if (texto.starts_with(kMarca)) texto.remove_prefix(kMarca.size());
  Lineas lineas;
  while (!texto.empty()) {
    const std::size_t fin = std::min(texto.find('\n'), texto.size());
    std::string_view linea = texto.substr(0, fin);
    if (linea.ends_with('\r')) linea.remove_suffix(1);
    lineas.emplace_back(linea);
    texto.remove_prefix(std::min(fin + 1, texto.size()));
  }
  return lineas;
}

std::string TextoDe(const Lineas& lineas) {
  std::string texto;
  for (const std::string& linea : lineas) texto.append(linea).push_back('\n');
  return texto;
}

std::vector<std::string_view> Columnas(std::string_view linea) {
  std::vector<std::string_view> columnas;
  for (std::size_t desde = 0; desde <= linea.size();) {
    const std::size_t hasta = std::min(linea.find('\t', desde), linea.size());
    columnas.push_back(linea.substr(desde, hasta - desde));
    desde = hasta + 1;
  }
  return columnas;
}

std::optional<Clase> LeerLinea(std::string_view linea) {
  const std::vector<std::string_view> columnas = Columnas(linea);
  if (columnas.size() < 3) return std::nullopt;
  const std::optional<services::GUID> clsid = LeerGuid(columnas[0]);
  if (!clsid || *clsid == kSinGuid) return std::nullopt;
  const bool libre = columnas.size() > 3 && columnas[3] == kHiloLibre;
  return Clase{*clsid, std::string(columnas[1]), std::string(columnas[2]),
               libre ? ModeloDeHilos::Libre : ModeloDeHilos::Unico};
}

std::string Linea(const Clase& clase) {
  return TextoDeGuid(clase.Clsid) + '\t' + clase.ProgId + '\t' + clase.Biblioteca + '\t' +
         std::string(clase.Hilos == ModeloDeHilos::Libre ? kHiloLibre : kHiloUnico);
}

void Comprobar(const Clase& clase) {
  const auto cabe = [](std::string_view texto) {
    return texto.find_first_of("\t\r\n") == std::string_view::npos;
  };
  if (!cabe(clase.ProgId) || !cabe(clase.Biblioteca)) {
    Fallar("Hay un tabulador o un fin de línea en la clase o en la ruta de su biblioteca");
  }
  if (clase.Clsid == kSinGuid) Fallar("La clase " + clase.ProgId + " no tiene identificador");
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

Registro::Registro(const std::filesystem::path& fichero)
    : fichero_(fichero, "la lista de clases") {}

std::vector<Clase> Registro::Clases() const {
  std::vector<Clase> clases;
  for (const std::string& linea : LineasDe(fichero_.Leer())) {
    if (std::optional<Clase> clase = LeerLinea(linea)) clases.push_back(std::move(*clase));
  }
  return clases;
}

std::optional<Clase> Registro::Buscar(std::string_view progId) const {
  if (fichero_.LoEscribenOtros()) {
    std::cerr << "Aviso: otros usuarios pueden escribir la lista de clases "
              << fichero_.Ruta().string()
              << ", y con ella elegir qué bibliotecas carga este programa\n";
  }
  for (Clase& clase : Clases()) {
    if (services::MismoTexto(clase.ProgId, progId)) return std::move(clase);
  }
  return std::nullopt;
}

void Registro::Poner(const Clase& clase) const {
  Comprobar(clase);
  fichero_.Cambiar([&](const std::string& texto) {
    Lineas lineas = LineasDe(texto);
    std::erase_if(lineas, [&](const std::string& linea) {
      const std::optional<Clase> otra = LeerLinea(linea);
      return otra &&
             (otra->Clsid == clase.Clsid || services::MismoTexto(otra->ProgId, clase.ProgId));
    });
    lineas.push_back(Linea(clase));
    return TextoDe(lineas);
  });
}

void Registro::Quitar(const services::GUID& clsid) const {
  const auto esEsa = [&](const Clase& clase) { return clase.Clsid == clsid; };
  const std::vector<Clase> clases = Clases();
  if (std::none_of(clases.begin(), clases.end(), esEsa)) return;
  fichero_.Cambiar([&](const std::string& texto) {
    Lineas lineas = LineasDe(texto);
    std::erase_if(lineas, [&](const std::string& linea) {
      const std::optional<Clase> clase = LeerLinea(linea);
      return clase && esEsa(*clase);
    });
    return TextoDe(lineas);
  });
}

FuncionesDeRegistro CrearRegistro(const std::filesystem::path& biblioteca) {
  return {[biblioteca](const services::ClaseRegistrada& clase) {
            return SinExcepciones([&] {
              Registro().Poner({clase.Clsid, clase.ProgId, biblioteca.string(), clase.Hilos});
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
