#pragma once

#include "apoyo/negocio_de_prueba.h"

// What load and commit do, told to the engine in a few statements that copy whole sets between the
// two files. It is what the component's row by row copy is compared with.

namespace medidas {

/// Both files behind one connection, with the same options as the component's two.
class CopiaDirecta {
 public:
  explicit CopiaDirecta(const apoyo::NegocioDePrueba& negocio);

  /// Fills the working tables with March 2005, in one transaction.
  void Cargar();
  /// Replaces the stored rows of March 2005 by the working tables, in one transaction, and empties
  /// these.
  void Grabar();

 private:
  services::Ref<sqlite::Conexion> conexion_;
};

}  // namespace medidas
