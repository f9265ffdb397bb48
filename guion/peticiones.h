#pragma once

#include <string>
#include <vector>

#include "datos/conexion.h"

namespace guion {

/// What the component asked of its host, in order, until it is looked at.
struct Registro {
  struct Sentencia {
    std::string Base;  ///< datos or local
    services::ModoApertura Modo;
    std::string Texto;  ///< as written
  };
  struct Borrado {
    std::string Clave;
    std::string Sentencia;
  };
  std::vector<Sentencia> Sentencias;
  std::vector<Borrado> Borrados;
};

}  // namespace guion
