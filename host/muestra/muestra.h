#pragma once

#include "datos/conexion.h"
#include "valores/fecha.h"

// A sample business for whoever opens the suite for the first time.

namespace muestra {

/// Whether the business has nothing yet: no concept, invoice, forecast or cash entry.
[[nodiscard]] bool EstaVacia(services::Conexion& CnDatos);

/// Fills the stored tables with suppliers and expenses, two years of invoices around the day of
/// `hoy` with their bases and receipts, forecasts, and cash entries. The same day gives the same
/// rows. Before: the tables are there, and empty.
/// It is one unit of work, ended here; a failure abandons it, and goes to the caller.
void Llenar(services::Conexion& CnDatos, services::FechaHora hoy);

}  // namespace muestra
