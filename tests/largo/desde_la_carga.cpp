#include "largo/desde_la_carga.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace largo {
namespace {

/// As any load or commit leaves it, whoever has changed nothing.
Fila ComoQueda(const std::string& tabla, Fila fila) {
  if (tabla == "ProvFacturas") {
    for (std::string* const retencion : {&fila[8], &fila[9], &fila[10]}) {
      if (*retencion == "NULL" || *retencion == "1") *retencion = "0";
    }
  }
  if (tabla == "CajaPagos") {
    for (std::string* const enlace : {&fila[4], &fila[5]}) {
      if (*enlace == "NULL") enlace->clear();
    }
  }
  return fila;
}

std::uint64_t HuellaDe(const std::string& tabla, const Fila& fila) {
  return Huella({{tabla, {ComoQueda(tabla, fila)}}});
}

std::set<std::uint64_t> Huellas(const Tablas& tablas) {
  std::set<std::uint64_t> huellas;
  for (const auto& [tabla, filas] : tablas) {
    for (const Fila& fila : filas) huellas.insert(HuellaDe(tabla, fila));
  }
  return huellas;
}

}  // namespace

DesdeLaCarga::DesdeLaCarga(const std::filesystem::path& carpeta)
    : fichero_(carpeta / "desde_la_carga.txt") {
  std::ifstream fichero(fichero_);
  fichero >> fallo_ >> tocaRecibos_;
  using Lectura = std::istream_iterator<std::uint64_t>;
  filas_.insert(Lectura(fichero), Lectura());
}

void DesdeLaCarga::Escribir() const {
  std::ofstream fichero(fichero_);
  fichero << fallo_ << ' ' << tocaRecibos_ << '\n';
  std::ranges::copy(filas_, std::ostream_iterator<std::uint64_t>(fichero, "\n"));
}

void DesdeLaCarga::Empezar(const Tablas& almacenadas) {
  filas_ = Huellas(almacenadas);
  fallo_ = false;
  tocaRecibos_ = false;
  Escribir();
}

void DesdeLaCarga::ApuntarFallo() {
  if (!std::exchange(fallo_, true)) Escribir();
}

void DesdeLaCarga::ApuntarRecibos() {
  if (!std::exchange(tocaRecibos_, true)) Escribir();
}

std::vector<Fila> DesdeLaCarga::Nuevas(const Tablas& unas, const Tablas& otras) const {
  const std::set<std::uint64_t> sabidas = Huellas(otras);
  std::vector<Fila> nuevas;
  for (const auto& [tabla, filas] : unas) {
    for (const Fila& fila : filas) {
      const std::uint64_t huella = HuellaDe(tabla, fila);
      if (sabidas.contains(huella) || filas_.contains(huella)) continue;
      nuevas.push_back(fila);
      nuevas.back().insert(nuevas.back().begin(), tabla);
    }
  }
  return nuevas;
}

}  // namespace largo
