#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/token.h"
#include "valores/valor.h"

namespace dialecto {

/// A text literal with its doubled quotes made single.
[[nodiscard]] services::Valor LeerTexto(std::string_view entreComillas);
/// Figures with a decimal point perhaps; a whole number where it fits 32 bits.
[[nodiscard]] services::Valor LeerNumero(std::string_view cifras, bool negativo);
/// m/d/yyyy, perhaps with h:n or h:n:s behind a blank. Throws 0x80040E14 where it is none.
[[nodiscard]] services::Valor LeerFecha(std::string_view entreAlmohadillas);

/// The literal as a column of `tipo` must hold it to be equal to it: a number text for a column of
/// numbers, the moment that a text tells for a date column. Null where no value can be.
[[nodiscard]] services::Valor Adaptado(services::Valor literal, services::TipoColumna tipo);

/// Whether it stands for a value: a text, a date, a number without its sign, True or False.
[[nodiscard]] bool EsLiteral(const Token& token);
/// The literals of a statement in their order, each adapted to its type where it has one: there is
/// one entry of `tipos` for each.
[[nodiscard]] std::vector<services::Valor> LeerLiterales(
    std::span<const Token> tokens, std::span<const std::optional<services::TipoColumna>> tipos);

}  // namespace dialecto
