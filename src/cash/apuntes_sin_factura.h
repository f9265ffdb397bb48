#pragma once

#include <string>
#include <vector>

#include "services/sesion.h"

namespace cash {

/// Cash entries of one concept that become one invoice.
struct Grupo {
  std::string Tipo;    ///< number of the concept
  double Importe = 0;  ///< what they add up to, VAT included, rounded to the cent
};

/// Cash entries that no invoice covers yet: of all concepts or of one, of all time or of some days.
class ApuntesSinFactura {
 public:
  /// Of all concepts.
  ApuntesSinFactura() = default;
  explicit ApuntesSinFactura(const std::string& concepto);
  /// Only from the beginning of one day to the end of the other, both as shown. Throws 13 for a
  /// text that is no date.
  void Entre(const std::string& desde, const std::string& hasta);

  /// By concept; several of one where `Factura` is Null in some entries and empty in others, or
  /// `Año` differs.
  [[nodiscard]] std::vector<Grupo> Grupos(services::Sesion& sesion) const;
  /// Gives them all the number and year of their invoice.
  void Sellar(services::Sesion& sesion, const std::string& factura, const std::string& anio) const;

 private:
  [[nodiscard]] std::string Condiciones() const;

  bool puedeHaber_ = true;
  std::string concepto_;  ///< its condition, empty for all
  std::string fechas_;    ///< the same
};

}  // namespace cash
