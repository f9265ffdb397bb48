#pragma once

#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pruebas {

/// An empty user's data folder for the length of a test; the environment is put back at its end.
class CarpetaDeDatos {
 public:
  CarpetaDeDatos() {
    std::string modelo = std::filesystem::temp_directory_path() / "tesvara-datos-XXXXXX";
    ruta_ = mkdtemp(modelo.data());
    Poner("XDG_DATA_HOME", ruta_.string());
  }
  CarpetaDeDatos(const CarpetaDeDatos&) = delete;
  ~CarpetaDeDatos() {
    for (auto vieja = viejas_.rbegin(); vieja != viejas_.rend(); ++vieja) {
      if (vieja->second) {
        setenv(vieja->first.c_str(), vieja->second->c_str(), 1);
      } else {
        unsetenv(vieja->first.c_str());
      }
    }
    std::filesystem::remove_all(ruta_);
  }

  [[nodiscard]] const std::filesystem::path& Ruta() const { return ruta_; }
  void Poner(const std::string& variable, const std::string& valor) {
    const char* vieja = getenv(variable.c_str());
    viejas_.emplace_back(variable, vieja ? std::optional<std::string>(vieja) : std::nullopt);
    setenv(variable.c_str(), valor.c_str(), 1);
  }

 private:
  std::filesystem::path ruta_;
  std::vector<std::pair<std::string, std::optional<std::string>>> viejas_;
};

}  // namespace pruebas
