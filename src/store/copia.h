#pragma once

#include <cstddef>
#include <functional>

#include "datos/recordset.h"
#include "store/tramo.h"

namespace store {

/// What a copied row gets besides the columns copied by position; `destino` is on the new row.
using Remate = std::function<void(services::Recordset& origen, services::Recordset& destino)>;
/// The value of a column on its way, by its position.
using Filtro = std::function<services::Valor(std::size_t posicion, services::Valor valor)>;

struct Columnas {
  std::size_t Ultima;  ///< positions 0 to this one are copied
  Filtro Filtrar = nullptr;
  Remate Rematar = nullptr;
};

/// Adds a row to `destino` for each row left in `origen`; none where that one isn't open. `tramo`
/// is turned on at the first `Update` and left on: a row that can't be written is passed over.
void CopiarFilas(services::Recordset& origen, services::Recordset& destino, Tramo& tramo,
                 const Columnas& columnas);

}  // namespace store
