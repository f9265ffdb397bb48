#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "muestra/azar.h"
#include "muestra/conceptos.h"
#include "services/fecha.h"

namespace muestra {

/// Amounts are whole cents, so that they add up.
using Centimos = std::int64_t;

struct Base {
  int Iva = 0;  ///< rate, percent
  Centimos Importe = 0;
  Centimos Cuota = 0;
};

struct Recibo {
  services::FechaHora Vencimiento;
  Centimos Importe = 0;
  Centimos Pagado = 0;
  services::FechaHora Pago;  ///< zero when nothing was paid
};

struct Factura {
  const Concepto* De = nullptr;
  std::string Numero;
  services::FechaHora Fecha;
  std::vector<Base> Bases;
  Centimos Exento = 0;
  Centimos BaseRetenida = 0;
  int TipoRetencion = 0;  ///< percent
  Centimos Retencion = 0;
  bool Aplazada = false;
  int Dias1Vto = 0;
  int Cadencia = 0;
  std::vector<Recibo> Recibos;

  /// Bases and their VAT and what is exempt, less what is withheld; also the sum of the receipts.
  [[nodiscard]] Centimos Total() const;
};

/// Invoices over the two years around a day, in the order of their dates. No two of a concept have
/// the same number.
[[nodiscard]] std::vector<Factura> Facturas(int cuantas, services::FechaHora hoy, Azar& azar);

}  // namespace muestra
