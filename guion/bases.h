#pragma once

#include <functional>
#include <memory>
#include <string>

#include "guion/base_sqlite.h"
#include "guion/ficheros.h"
#include "guion/guardada.h"

namespace salvaguarda {
class Almacen;
}

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
  void AbrirEnFichero(const std::string& fichero);
  void AbrirEnServidor(const esquema::EsquemaPropio& esquema);

  std::string fichero_local_;
  std::unique_ptr<Base> datos_;
  /// Makes what the guard has of the stored tables.
  std::function<std::shared_ptr<salvaguarda::Almacen>()> almacen_;
  std::unique_ptr<BaseSqlite> local_;
};

}  // namespace guion
