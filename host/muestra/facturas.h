#pragma once

#include <vector>

#include "muestra/negocio.h"

namespace muestra {

/// 1,200 invoices of the two years around a day, the oldest first: fewer from that day's month on,
/// as what is to come is known in part. Receipts due by then are mostly paid, and none was paid
/// after that day.
[[nodiscard]] std::vector<Factura> Facturas(services::FechaHora hoy);

}  // namespace muestra
