#pragma once

#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace list {

/// Writes the paid amounts of the list that differ from the snapshot into the working due dates,
/// with the day of today; all of them when the list and the snapshot have no longer as many rows.
///
/// False when the user was told of an amount above its receipt, or of a row that couldn't be
/// written: the rows before it are then already written. Throws 13 for an amount that was emptied.
[[nodiscard]] bool EscribirPagados(services::Sesion& sesion, RejillaPagos& rejilla);

}  // namespace list
