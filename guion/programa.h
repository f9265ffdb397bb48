#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "guion/mundo.h"

namespace guion {

struct Corrientes {
  std::istream& Entrada;
  std::ostream& Salida;
  std::ostream& Errores;
};

/// The whole program: takes the arguments after its name, installs the platform and gives the exit
/// status.
[[nodiscard]] int Programa(const std::vector<std::string>& argumentos, Corrientes corrientes,
                           const Fabrica& fabrica);

}  // namespace guion
