#pragma once

#include "services/sesion.h"
#include "store/rango_fechas.h"

namespace store {

/// Empties the working tables and copies into them what belongs to the range on the screen: each
/// invoice with a due date in it, whole; the forecasts that begin no later than its end; the cash
/// entries of those invoices, and those of no invoice.
///
/// The range is noted down as loaded at the end, when the copy is durable and no table of it was
/// passed over.
///
/// A row that can't be written is missing from the copy, without a message. A failure before the
/// first row is written goes to the caller, with the working tables already empty.
void CargarTemporales(services::Sesion& sesion, RangoFechas& rango);

}  // namespace store
