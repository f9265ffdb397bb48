#pragma once

#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

namespace pruebas {

/// A server on which what is true of every engine is tried. It is there for the test, which may
/// make and drop schemas on it.
struct ServidorDePrueba {
  std::string Nombre;
  /// The text that connects to it.
  std::string Texto;
};

inline void PrintTo(const ServidorDePrueba& servidor, std::ostream* salida) {
  *salida << servidor.Nombre;
}

/// Those that the environment tells: `TESVARA_POSTGRESQL` and `TESVARA_MARIADB` hold connection
/// texts.
[[nodiscard]] inline std::vector<ServidorDePrueba> ServidoresDePrueba() {
  std::vector<ServidorDePrueba> servidores;
  const auto anadir = [&](const char* nombre, const char* variable) {
    if (const char* texto = std::getenv(variable)) servidores.push_back({nombre, texto});
  };
  anadir("postgresql", "TESVARA_POSTGRESQL");
  anadir("mariadb", "TESVARA_MARIADB");
  return servidores;
}

}  // namespace pruebas
