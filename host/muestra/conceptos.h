#pragma once

#include <string>
#include <vector>

namespace muestra {

/// How the invoices of a concept come.
enum class Clase {
  Mercancia,    ///< goods at one rate or two, in several receipts
  Profesional,  ///< a fee with withholding
  Servicio,     ///< one rate, one receipt
  Exento,       ///< without VAT
};

struct Concepto {
  int Codigo;
  std::string Descripcion;
  Clase Tipo;
  /// Usual amount before VAT, in whole euros.
  int Importe;
  /// VAT rate of its goods, percent.
  int Iva;
};

/// The suppliers and expenses of the sample business, all invented.
[[nodiscard]] const std::vector<Concepto>& Conceptos();

}  // namespace muestra
