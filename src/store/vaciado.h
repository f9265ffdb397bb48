#pragma once

#include "datos/conexion.h"

namespace store {

/// Empties the five working tables that mirror stored ones. The list's own table and the deleted
/// occurrences of forecasts stay.
void VaciarTemporales(services::Conexion& CnTemp);

}  // namespace store
