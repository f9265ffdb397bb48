#pragma once

#include "apoyo/negocio_de_prueba.h"

// What load and commit do, told to the engine in a few statements that copy whole sets between the
// two files. It is what the component's row by row copy is compared with.

namespace medidas {

/// Both files behind one connection, with the same options as the component's two.
class DosFicheros {
 public:
  explicit DosFicheros(const apoyo::NegocioDePrueba& negocio);

 protected:
  /// In one transaction.
  void Ejecutar(const std::string& sql);

 private:
  services::Ref<sqlite::Conexion> conexion_;
};

/// By the joins of the system's own statements.
class CopiaDirecta : private DosFicheros {
 public:
  using DosFicheros::DosFicheros;

  /// Fills the working tables with March 2005.
  void Cargar();
  /// Replaces the stored rows of March 2005 by the working tables, and empties these.
  void Grabar();
};

/// The yardstick: whole tables, into the same indexes, and nothing looked for. The rows are the
/// same in a business all of whose rows are of March 2005.
class CopiaEntera : private DosFicheros {
 public:
  using DosFicheros::DosFicheros;

  void Cargar();
  /// Deletes all that is stored, writes the working tables in its place, stamps the cash entries,
  /// and empties the working tables.
  void Grabar();
};

}  // namespace medidas
