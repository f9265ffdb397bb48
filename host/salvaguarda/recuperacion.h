#pragma once

#include <string>

#include "salvaguarda/almacen.h"
#include "salvaguarda/copias.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// Puts a copy of rows back: what it is about is afterwards as the copy tells, in one unit, or as
/// it was when it throws. The present state is copied first, among `copias`. `almacen` has nothing
/// under way, `lectura` is another connection to its file. Throws what the engine throws.
void Reponer(Almacen& almacen, sqlite::Conexion& lectura, const Copia& copia, Copias& copias,
             services::FechaHora momento, const std::string& usuario);

}  // namespace salvaguarda
