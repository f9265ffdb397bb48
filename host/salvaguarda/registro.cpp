#include "salvaguarda/registro.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace salvaguarda {
namespace {

namespace fs = std::filesystem;

void ApartarSiEsGrande(const fs::path& fichero, std::uintmax_t tope) {
  std::error_code ignorado;
  const std::uintmax_t ocupa = fs::file_size(fichero, ignorado);
  if (ignorado || ocupa < tope) return;
  fs::path anterior = fichero;
  anterior.replace_filename(fichero.stem().string() + ".anterior" + fichero.extension().string());
  fs::rename(fichero, anterior, ignorado);
}

}  // namespace

void Registro::Anotar(std::string_view momento, std::string_view texto) noexcept {
  try {
    ApartarSiEsGrande(fichero_, tope_);
    std::string linea = std::string(momento) + " " + std::string(texto);
    std::ranges::replace(linea, '\n', ' ');
    std::ofstream(fichero_, std::ios::app | std::ios::binary) << linea << '\n';
  } catch (...) {
    return;
  }
}

}  // namespace salvaguarda
