#pragma once

#include <cstddef>

#include "apoyo/negocio_de_prueba.h"
#include "sqlite/fichero.h"

// What both cash screens do, told to the engine alone: the invoices of all cash entries in a few
// statements over whole sets, and the rows of one concept read with a prepared one.

namespace medidas {

inline constexpr int kConceptos = 200;

/// SQL that leaves so many cash entries without an invoice in the working tables, of that many
/// concepts, and nothing else.
[[nodiscard]] std::string SoloApuntes(std::int64_t apuntes, int conceptos);

class CajaDirecta {
 public:
  explicit CajaDirecta(const apoyo::NegocioDePrueba& negocio);

  void Ejecutar(const std::string& sql) { base_.Ejecutar(sql); }
  /// The text of a query's one cell.
  [[nodiscard]] std::string Texto(const char* sql);
  /// One invoice a concept, with its base, its receipt and the stamps, in one transaction.
  void Facturar();
  /// The entries of concept 1, each column as a text; how many there are.
  std::size_t Leer();

 private:
  sqlite::Base base_;
  sqlite::Preparada lectura_;
};

}  // namespace medidas
