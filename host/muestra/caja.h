#pragma once

#include <span>
#include <vector>

#include "muestra/negocio.h"

namespace muestra {

/// Cash entries of two branches: those of small invoices that were paid whole, up to the invoice's
/// total, and those of the weeks before a day that wait for their invoice.
[[nodiscard]] std::vector<Apunte> Caja(std::span<const Factura> facturas, services::FechaHora hoy);

}  // namespace muestra
