#pragma once

#include <cstdint>
#include <string>

namespace largo {

/// Statements that fill the stored tables: invoices around March 2005 whose receipts make up their
/// totals, forecasts and cash entries. The same seed gives the same rows.
[[nodiscard]] std::string Negocio(std::uint64_t semilla);

}  // namespace largo
