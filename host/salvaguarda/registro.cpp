#include "salvaguarda/registro.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>

namespace salvaguarda {
namespace {

namespace fs = std::filesystem;

/// Makes room for so much more; when what was there can't be put aside, at its cost.
void HacerSitio(const fs::path& fichero, std::uintmax_t tope, std::uintmax_t paraEsto) {
  std::error_code fallo;
  const std::uintmax_t ocupa = fs::file_size(fichero, fallo);
  if (fallo || ocupa + paraEsto <= tope) return;
  fs::path anterior = fichero;
  anterior.replace_filename(fichero.stem().string() + ".anterior" + fichero.extension().string());
  fs::rename(fichero, anterior, fallo);
  if (fallo) fs::resize_file(fichero, 0, fallo);
}

/// Without the rest of what is too long, which ends with a whole character.
std::string Acortada(std::string linea, std::size_t hasta) {
  if (linea.size() <= hasta) return linea;
  while (hasta > 0 && (static_cast<unsigned char>(linea[hasta]) & 0xC0U) == 0x80U) --hasta;
  linea.resize(hasta);
  return linea + "…";
}

}  // namespace

void Registro::Anotar(std::string_view momento, std::string_view texto) noexcept {
  try {
    std::string linea = std::string(momento) + " " + std::string(texto);
    std::ranges::replace(linea, '\n', ' ');
    linea = Acortada(std::move(linea), kLinea) + "\n";
    HacerSitio(fichero_, tope_, linea.size());
    std::ofstream(fichero_, std::ios::app | std::ios::binary) << linea;
  } catch (...) {
    return;
  }
}

}  // namespace salvaguarda
