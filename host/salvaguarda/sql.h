#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "valores/valor.h"

// The engine's own SQL, put together from texts.

namespace salvaguarda::sql {

/// A text as a literal.
[[nodiscard]] std::string Texto(std::string_view texto);
/// A value as a literal, whatever the process's locale.
[[nodiscard]] std::string Literal(const services::Valor& valor);
[[nodiscard]] std::string Juntar(std::initializer_list<std::string_view> piezas);
/// The pieces, with that between each two of them.
[[nodiscard]] std::string Separar(const std::vector<std::string>& piezas, std::string_view con);
/// A column behind its row's name, which may be none.
[[nodiscard]] std::string Columna(std::string_view alias, std::string_view nombre);
/// That two expressions are the same key, whose case doesn't count: a table made from a query has
/// no order of its own any more.
[[nodiscard]] std::string Igual(std::string_view a, std::string_view b);

}  // namespace salvaguarda::sql
