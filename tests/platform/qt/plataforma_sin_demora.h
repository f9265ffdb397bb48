#pragma once

#include "qt/plataforma_qt.h"

namespace pruebas {

/// The toolkit's, whose messages take a key at once: nobody reads those of a test.
inline services::Plataforma PlataformaSinDemora() {
  return qt::CrearPlataforma(qt::DisenosDeTesvara(), std::chrono::milliseconds::zero());
}

}  // namespace pruebas
