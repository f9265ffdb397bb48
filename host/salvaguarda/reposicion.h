#pragma once

#include <vector>

#include "salvaguarda/almacen.h"
#include "salvaguarda/copias.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What putting a copy of rows back does to the stored ones, or did.
struct Reposicion {
  std::vector<Fila> Vuelven;
  std::vector<Fila> SeVan;
  std::vector<Fila> Cambian;

  [[nodiscard]] std::size_t Cuantas() const {
    return Vuelven.size() + SeVan.size() + Cambian.size();
  }
  bool operator==(const Reposicion&) const = default;
};

/// What putting it back would do now: the rows that it has and the store hasn't, those that the
/// store has under its keys and it hasn't, and those that say something else. Who wrote a row when
/// doesn't count. A cash entry that is gone doesn't come back: only its invoice is put back. `base`
/// is any connection to the file of `almacen` with nothing under way. Throws what the engine
/// throws.
[[nodiscard]] Reposicion Comparar(Almacen& almacen, sqlite::Conexion& base, const Copia& copia);

}  // namespace salvaguarda
