#pragma once

#include <memory>

#include "guion/base.h"
#include "guion/ficheros.h"

namespace guion {

/// The two databases of a session, with their tables.
class Bases {
 public:
  /// Throws `services::ErrorEjecucion` when a file can't be opened or its tables can't be made.
  Bases(const Ficheros& ficheros, int sesion);

  [[nodiscard]] Base& Datos() { return *datos_; }
  [[nodiscard]] Base& Local() { return *local_; }

 private:
  std::unique_ptr<Base> datos_;
  std::unique_ptr<Base> local_;
};

}  // namespace guion
