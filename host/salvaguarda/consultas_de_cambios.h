#pragma once

#include <string>
#include <string_view>

// What others have changed, as SQL: what `temp.Distintas` holds, told for each invoice, forecast
// and cash entry. But for the due dates all of them find the columns of a `Cambio`: those of its
// `Fila`, whether it was there and is, its two amounts, who did it, whether it is in the list,
// whether a commit deletes it, and whether it writes again what is gone of one that it doesn't.

namespace salvaguarda::sql {

/// The changed invoices, one for all of their tables, of which this commit has something or
/// something is left. `de`: the attached file that tells what there was.
[[nodiscard]] std::string FacturasCambiadas(std::string_view de);
/// The changed due dates, one for each key, in the order in which they are due: the columns of
/// their `Fila`, whether they were there and are, their two amounts, and what was paid of each.
[[nodiscard]] std::string VencimientosCambiados();
/// The changed forecasts, of which a concept has one, unless they are gone on both sides.
[[nodiscard]] std::string PrevisionesCambiadas();
/// The cash entries with another invoice. One that is gone can't be linked any more, and nothing of
/// it is lost.
[[nodiscard]] std::string ApuntesConOtraFactura();

}  // namespace salvaguarda::sql
