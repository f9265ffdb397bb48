#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "valores/valor.h"

// A moment in a file is a text, and the programs of a suite don't all write the same one.

namespace sqlite {

/// How it is written here: `yyyy-mm-dd hh:nn:ss`.
[[nodiscard]] std::string Iso(services::FechaHora momento);

/// The moment that a stored text tells: the text above, also with a `T` for the blank and without
/// its seconds or its time, or a date as users write it. No value for any other text.
[[nodiscard]] std::optional<services::FechaHora> LeerMomento(std::string_view texto);

/// The texts under which a moment may be stored, always as many, so that an index finds them all.
/// Nulls for what is no moment.
[[nodiscard]] std::vector<services::Valor> FormasDeMomento(const services::Valor& momento);

}  // namespace sqlite
