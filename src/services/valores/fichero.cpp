#include "valores/fichero.h"

#include <system_error>

#include "valores/texto.h"

namespace services {
namespace {

namespace fs = std::filesystem;

/// What a folder holds under that name, whatever its case; empty for nothing.
fs::path EnCarpeta(const fs::path& carpeta, std::string_view nombre) {
  std::error_code fallo;
  fs::path hallado;
  for (fs::directory_iterator entrada(carpeta, fallo), fin; !fallo && entrada != fin;
       entrada.increment(fallo)) {
    const fs::path& este = entrada->path();
    if (!MismoTexto(este.filename().string(), nombre)) continue;
    if (hallado.empty() || este < hallado) hallado = este;
  }
  return hallado;
}

}  // namespace

std::optional<fs::path> BuscarFichero(std::string_view ruta, const fs::path& desde) {
  fs::path donde = desde;
  while (!ruta.empty()) {
    const std::size_t corte = ruta.find_first_of("\\/");
    const std::string_view nombre = ruta.substr(0, corte);
    ruta.remove_prefix(corte == std::string_view::npos ? ruta.size() : corte + 1);
    if (nombre.empty()) continue;
    donde = EnCarpeta(donde, nombre);
    if (donde.empty()) return std::nullopt;
  }
  std::error_code fallo;
  if (!fs::is_regular_file(donde, fallo)) return std::nullopt;
  return donde;
}

}  // namespace services
