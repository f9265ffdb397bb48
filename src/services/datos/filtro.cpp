#include "datos/filtro.h"

#include "valores/error.h"
#include "valores/texto.h"

namespace services {

namespace {

[[noreturn]] void NoValido(std::string_view criterio) {
  throw ErrorEjecucion(error::ArgumentoNoValido,
                       "El filtro no se entiende: " + std::string(criterio));
}

/// The text between quotes, which must reach from end to end of `citado`.
std::string SinComillas(std::string_view citado, std::string_view criterio) {
  if (citado.size() < 2 || citado.front() != '\'' || citado.back() != '\'') NoValido(criterio);
  citado = citado.substr(1, citado.size() - 2);
  std::string texto;
  for (std::size_t i = 0; i < citado.size(); ++i) {
    if (citado[i] == '\'' && (++i == citado.size() || citado[i] != '\'')) NoValido(criterio);
    texto += citado[i];
  }
  return texto;
}

std::string_view SinCorchetes(std::string_view nombre) {
  const bool conCorchetes = nombre.size() > 2 && nombre.front() == '[' && nombre.back() == ']';
  return conCorchetes ? nombre.substr(1, nombre.size() - 2) : nombre;
}

}  // namespace

Filtro LeerFiltro(std::string_view criterio) {
  if (Trim(criterio).empty()) return {};
  const auto igual = criterio.find('=');
  if (igual == std::string_view::npos) NoValido(criterio);
  const auto columna = SinCorchetes(Trim(criterio.substr(0, igual)));
  if (columna.empty() || columna.find_first_of("'<> ") != std::string_view::npos) {
    NoValido(criterio);
  }
  return {std::string(columna), SinComillas(Trim(criterio.substr(igual + 1)), criterio)};
}

}  // namespace services
