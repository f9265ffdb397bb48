#pragma once

#include "services/sesion.h"
#include "store/intervalo.h"

namespace store {

/// Empties the working tables and copies into them what belongs to `rango`: each invoice with a due
/// date in it, whole; the forecasts that begin no later than its end; the cash entries of those
/// invoices, and those of no invoice. Durable at its end. Whether no table was passed over; a row
/// that is missing doesn't count.
///
/// A row that can't be written is missing from the copy, without a message. A failure before the
/// first row is written goes to the caller, with the working tables already empty.
[[nodiscard]] bool CargarTemporales(services::Sesion& sesion, const Intervalo& rango);

}  // namespace store
