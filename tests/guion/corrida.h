#pragma once

#include <string>

namespace pruebas {

/// What a run of the runner leaves.
struct Corrida {
  int Estado;
  std::string Salida;
  std::string Errores;
};

}  // namespace pruebas
