#include "salvaguarda/sql.h"

#include <array>
#include <charconv>

namespace salvaguarda::sql {

std::string Texto(std::string_view texto) {
  std::string literal = "'";
  for (const char c : texto) literal += c == '\'' ? "''" : std::string(1, c);
  return literal + "'";
}

std::string Literal(const services::Valor& valor) {
  if (valor.EsNulo()) return "NULL";
  if (const auto* momento = valor.Si<services::FechaHora>()) {
    return Texto(services::TextoIso(*momento));
  }
  if (valor.EsTexto()) return Texto(valor.Texto());
  std::array<char, 32> cifras;
  const auto escrito = std::to_chars(cifras.data(), cifras.data() + cifras.size(), valor.Numero());
  return {cifras.data(), escrito.ptr};
}

std::string Juntar(std::initializer_list<std::string_view> piezas) {
  std::string texto;
  for (const std::string_view pieza : piezas) texto += pieza;
  return texto;
}

std::string Separar(const std::vector<std::string>& piezas, std::string_view con) {
  std::string texto;
  for (std::size_t i = 0; i < piezas.size(); ++i) {
    if (i > 0) texto += con;
    texto += piezas[i];
  }
  return texto;
}

std::string Columna(std::string_view alias, std::string_view nombre) {
  return Juntar({alias, alias.empty() ? "" : ".", "\"", nombre, "\""});
}

std::string Igual(std::string_view a, std::string_view b) {
  return Juntar({a, " COLLATE ES = ", b});
}

}  // namespace salvaguarda::sql
