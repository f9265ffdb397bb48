#include "salvaguarda/copias.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <set>
#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/fallo_de_fichero.h"
#include "salvaguarda/fichero_entero.h"
#include "sqlite/momento.h"
#include "valores/error.h"

namespace salvaguarda {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDeFilas = "filas-";
constexpr std::string_view kEntera = "empresa-";
constexpr std::string_view kExtension = ".sqlite";

/// A moment as a name has it, so that names sort as moments: `20261122-141507`.
std::string EnNombre(services::FechaHora momento) {
  std::string texto = services::TextoIso(momento);
  std::erase_if(texto, [](char c) { return c == '-' || c == ':'; });
  std::ranges::replace(texto, ' ', '-');
  return texto;
}

/// The names of the files of one kind, in order.
std::vector<std::string> Nombres(const fs::path& carpeta, std::string_view principio) {
  std::vector<std::string> nombres;
  std::error_code sinCarpeta;
  for (const auto& entrada : fs::directory_iterator(carpeta, sinCarpeta)) {
    const std::string nombre = entrada.path().filename().string();
    if (nombre.starts_with(principio) && nombre.ends_with(kExtension)) nombres.push_back(nombre);
  }
  std::ranges::sort(nombres);
  return nombres;
}

void CrearCarpeta(const fs::path& carpeta) {
  std::error_code fallo;
  fs::create_directories(carpeta, fallo);
  if (fallo) LanzarNoSePuede("usar la carpeta de las copias, " + carpeta.string(), fallo);
}

bool Existe(const fs::path& fichero) {
  return EnElDisco("usar " + fichero.parent_path().string(), [&] { return fs::exists(fichero); });
}

/// What a program that was killed left in the middle; not what another is at.
void QuitarLasSinAcabar(const fs::path& carpeta) {
  const auto ayer = fs::file_time_type::clock::now() - std::chrono::hours(24);
  std::error_code ignorado;
  for (const auto& entrada : fs::directory_iterator(carpeta, ignorado)) {
    if (!entrada.path().string().ends_with(kSinAcabar)) continue;
    if (entrada.last_write_time(ignorado) < ayer) fs::remove(entrada.path(), ignorado);
  }
}

/// The day in a name of a copy of rows.
std::string DiaDe(const std::string& nombre) {
  return nombre.substr(kDeFilas.size(), 8);
}

}  // namespace

const std::string& Copias::Propio() {
  static const std::string propio = std::to_string(std::random_device()());
  return propio;
}

fs::path Copias::NombreLibre(services::FechaHora momento) const {
  CrearCarpeta(carpeta_);
  const std::string base = std::string(kDeFilas) + EnNombre(momento);
  for (int i = 1;; ++i) {
    std::string orden = std::to_string(i);
    orden.insert(0, 3 - std::min<std::size_t>(3, orden.size()), '0');
    fs::path libre = carpeta_ / (base + "-" + orden + "-" + Propio() + std::string(kExtension));
    if (!Existe(libre)) return libre;
  }
}

std::vector<Copia> Copias::Guardadas() const {
  std::vector<Copia> copias;
  CrearCarpeta(carpeta_);  // there may be a file in its place
  const auto base = sqlite::AbrirConexion(":memory:", {.Crear = true});
  for (const std::string& nombre : Nombres(carpeta_, kDeFilas)) {
    const fs::path fichero = carpeta_ / nombre;
    try {
      const sql::Adjunta adjunta(*base, fichero.string(), "copia");
      const auto filas = base->Consultar("SELECT * FROM copia.Copia").Filas;
      if (filas.Cuantas() != 1 || filas.Columnas() != 6) continue;
      const auto texto = [&](std::size_t columna) { return filas.En(0, columna).Texto(); };
      copias.push_back({sqlite::LeerMomento(texto(0)).value_or(services::FechaHora{}),
                        texto(1),
                        {texto(2), texto(3)},
                        fichero,
                        static_cast<std::int64_t>(filas.En(0, 4).Numero()),
                        static_cast<std::int64_t>(filas.En(0, 5).Numero())});
    } catch (const services::ErrorEjecucion&) {
      continue;
    }
  }
  std::ranges::reverse(copias);
  return copias;
}

bool Copias::GuardarEntera(const fs::path& almacenados, services::FechaHora momento) {
  CrearCarpeta(carpeta_);
  const std::string dia = EnNombre(momento).substr(0, 8);
  const fs::path fichero = carpeta_ / (std::string(kEntera) + dia + std::string(kExtension));
  if (Existe(fichero)) return false;
  FicheroEntero entero(fichero, Propio());
  sqlite::AbrirConexion(almacenados.string())->CopiarEn(entero.EnCurso().string());
  entero.Terminar();
  QuitarLasSinAcabar(carpeta_);
  std::vector<std::string> todas = Nombres(carpeta_, kEntera);
  // The one just made stays, whatever the clock says.
  std::erase(todas, fichero.filename().string());
  for (; todas.size() >= kEnteras; todas.erase(todas.begin())) {
    std::error_code ignorado;
    fs::remove(carpeta_ / todas.front(), ignorado);
  }
  return true;
}

void Copias::Podar(const std::string& nueva) const {
  std::vector<std::string> sobran = Nombres(carpeta_, kDeFilas);
  if (sobran.size() <= kUltimas) return;
  std::set<std::string> primeras;
  std::set<std::string> dias;
  for (const std::string& nombre : sobran) {
    if (dias.insert(DiaDe(nombre)).second) primeras.insert(nombre);
  }
  while (primeras.size() > kDias) primeras.erase(primeras.begin());
  sobran.resize(sobran.size() - kUltimas);
  for (const std::string& nombre : sobran) {
    std::error_code ignorado;
    if (nombre == nueva || nombre == reservada_ || primeras.contains(nombre)) continue;
    fs::remove(carpeta_ / nombre, ignorado);
  }
}

}  // namespace salvaguarda
