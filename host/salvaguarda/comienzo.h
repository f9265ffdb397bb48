#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace salvaguarda {

/// A range of due dates as they are stored, both ends part of it.
struct Rango {
  std::string Desde;
  std::string Hasta;
};

/// What a component begins with a statement on the stored tables.
struct Comienzo {
  enum class Tarea { Carga, Grabacion };
  Tarea Que;
  salvaguarda::Rango Rango;
};

/// What the statement begins; none for any other.
[[nodiscard]] std::optional<Comienzo> Reconocer(std::string_view sentencia);
/// Whether it is the first one of those that empty the working tables.
[[nodiscard]] bool EsVaciado(std::string_view sentencia);

}  // namespace salvaguarda
