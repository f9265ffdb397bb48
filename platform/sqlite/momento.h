#pragma once

#include <optional>
#include <string_view>

#include "valores/fecha.h"

// A moment in a file is a text, and the programs of a suite don't all write the same one.

namespace sqlite {

/// The moment that a stored text tells: `yyyy-mm-dd hh:nn:ss`, as it is written here, also with a
/// `T` for the blank and without its seconds or its time, or a date as users write it. No value for
/// any other text.
[[nodiscard]] std::optional<services::FechaHora> LeerMomento(std::string_view texto);

}  // namespace sqlite
