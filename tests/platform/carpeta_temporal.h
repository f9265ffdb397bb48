#pragma once

#include <filesystem>
#include <string>

namespace pruebas {

/// A folder of its own, gone with everything in it at the end.
class CarpetaTemporal {
 public:
  CarpetaTemporal() {
    std::string plantilla = std::filesystem::temp_directory_path() / "tesvara-XXXXXX";
    camino_ = ::mkdtemp(plantilla.data());
  }
  ~CarpetaTemporal() {
    std::error_code fallo;
    std::filesystem::remove_all(camino_, fallo);
  }
  CarpetaTemporal(const CarpetaTemporal&) = delete;
  CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;

  [[nodiscard]] std::string Fichero(const std::string& nombre) const { return camino_ / nombre; }
  [[nodiscard]] std::string Camino() const { return camino_; }

 private:
  std::filesystem::path camino_;
};

}  // namespace pruebas
