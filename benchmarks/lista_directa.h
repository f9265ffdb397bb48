#pragma once

#include <cstddef>

#include "apoyo/negocio_de_prueba.h"
#include "sqlite/fichero.h"

// The list's rows written to its table and read back in order, with prepared statements and no
// more. It is what the rebuild of the list is compared with.

namespace medidas {

class ListaDirecta {
 public:
  explicit ListaDirecta(const apoyo::NegocioDePrueba& negocio);

  /// In one transaction; how many rows came back.
  std::size_t Rehacer();

 private:
  void Escribir();
  [[nodiscard]] std::size_t LeerEnOrden();

  sqlite::Base base_;
  sqlite::Preparada vencimientos_;
  sqlite::Preparada insercion_;
  sqlite::Preparada lista_;
};

}  // namespace medidas
