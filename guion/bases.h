#pragma once

#include <memory>
#include <string>

#include "guion/base_sqlite.h"
#include "guion/ficheros.h"
#include "guion/guardada.h"

namespace guion {

/// The two databases of a session, with their tables.
class Bases {
 public:
  /// Throws `services::ErrorEjecucion` when a file can't be opened or its tables can't be made.
  Bases(const Ficheros& ficheros, int sesion);

  [[nodiscard]] Base& Datos() { return *datos_; }
  [[nodiscard]] Base& Local() { return *local_; }
  /// With the guard that the suite has for them, its copies and its log beside the working file.
  /// Throws alike.
  [[nodiscard]] Guardada Guardar(const std::string& usuario, const salvaguarda::Trato& trato) const;

 private:
  std::string fichero_datos_;
  std::string fichero_local_;
  /// The embedded engine's, where it is one.
  std::unique_ptr<Base> datos_;
  BaseSqlite* datosSqlite_ = nullptr;
  std::unique_ptr<BaseSqlite> local_;
};

}  // namespace guion
