#pragma once

#include "services/conexion.h"
#include "services/fecha.h"

namespace muestra {

/// Fills empty stored tables with the sample business around a day, always the same for the same
/// day: concepts, two years of invoices with their VAT and receipts, forecasts, and the cash
/// entries of two branches. Ends the unit of work; a failure leaves nothing written.
void Llenar(services::Conexion& CnDatos, services::FechaHora hoy);

}  // namespace muestra
