#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/banco.h"

namespace pruebas {

/// A server on which what is true of a driver is tried. It is there for the test, which may make
/// and drop schemas on it.
struct ServidorDePrueba {
  std::string Nombre;
  /// The text that connects to it.
  std::string Texto;
};

/// Those that the environment tells: `TESVARA_POSTGRESQL` and `TESVARA_MARIADB` hold connection
/// texts.
[[nodiscard]] std::vector<ServidorDePrueba> ServidoresDePrueba();

[[nodiscard]] std::unique_ptr<Banco> CrearBancoOdbc(const ServidorDePrueba& servidor);

}  // namespace pruebas
