#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

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

/// The statement of each row of `filas`, a static recordset that then is where it was: at its first
/// row. For those that a load or a commit opens one after the other.
template <class Sentencia>
[[nodiscard]] std::vector<std::string> SentenciasDe(services::Recordset& filas,
                                                    const Sentencia& sentencia) {
  std::vector<std::string> sentencias;
  for (; !filas.Eof(); filas.MoveNext()) sentencias.push_back(sentencia(filas));
  if (!sentencias.empty()) filas.AbsolutePosition(1);
  return sentencias;
}

}  // namespace store
