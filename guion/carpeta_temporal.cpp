#include "guion/carpeta_temporal.h"

#include <cerrno>
#include <cstdlib>
#include <string>

namespace guion {

CarpetaTemporal::CarpetaTemporal(bool conservar) : conservar_(conservar) {
  std::string plantilla = std::filesystem::temp_directory_path() / "tesvara-guion-XXXXXX";
  if (!mkdtemp(plantilla.data())) {
    throw std::filesystem::filesystem_error("no se puede crear una carpeta temporal", plantilla,
                                            std::error_code(errno, std::generic_category()));
  }
  ruta_ = plantilla;
}

CarpetaTemporal::~CarpetaTemporal() {
  std::error_code ignorado;
  if (!conservar_) std::filesystem::remove_all(ruta_, ignorado);
}

}  // namespace guion
