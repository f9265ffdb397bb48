#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/conexion_sqlite.h"

namespace largo {

/// Rows as texts, a value a column.
using Fila = std::vector<std::string>;

[[nodiscard]] std::vector<Fila> Consultar(sqlite::Conexion& base, std::string_view sql);
/// The first value of the first row.
[[nodiscard]] std::string Uno(sqlite::Conexion& base, std::string_view sql);

/// All stored tables that a commit writes, by their names, without who wrote a row when; sorted.
using Tablas = std::map<std::string, std::vector<Fila>>;
[[nodiscard]] Tablas LeerAlmacenadas(sqlite::Conexion& almacenados);
/// The working ones alike, by the names of the stored ones.
[[nodiscard]] Tablas LeerDeTrabajo(sqlite::Conexion& deTrabajo);
[[nodiscard]] std::uint64_t Huella(const Tablas& tablas);
/// The first rows that one has and the other hasn't, a line each; empty for none.
[[nodiscard]] std::string Diferencia(const Tablas& esperadas, const Tablas& halladas);
/// The same of rows in any order.
[[nodiscard]] std::string Diferencia(std::vector<Fila> esperadas, std::vector<Fila> halladas);

}  // namespace largo
