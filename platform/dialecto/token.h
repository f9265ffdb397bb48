#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace dialecto {

enum class ClaseToken : std::uint8_t {
  Fin,
  Reservada,
  Nombre,
  Texto,   ///< what stands between the quotes, doubled ones still doubled
  Numero,  ///< figures with a decimal point perhaps
  Fecha,   ///< what stands between two `#`
  Simbolo,
};

enum class Palabra : std::uint8_t {
  Ninguna,
  And,
  As,
  Asc,
  By,
  Delete,
  Desc,
  Distinct,
  False,
  From,
  Group,
  Inner,
  Is,
  Join,
  Left,
  Like,
  Not,
  Null,
  On,
  Or,
  Order,
  Right,
  Select,
  True,
  Where,
};

enum class Simbolo : std::uint8_t {
  Ninguno,
  Abrir,
  Cerrar,
  Coma,
  Punto,
  Asterisco,
  Menos,
  PuntoYComa,
  Igual,
  Distinto,
  Menor,
  Mayor,
  MenorIgual,
  MayorIgual,
};

/// A piece of a statement. `texto` points into the statement.
struct Token {
  ClaseToken clase = ClaseToken::Fin;
  Palabra palabra = Palabra::Ninguna;
  Simbolo simbolo = Simbolo::Ninguno;
  std::string_view texto;
};

/// Takes a statement apart; the last token is always a `Fin`. Throws 0x80040E14 for what is no
/// token: a quote that isn't closed, a comment, a sign that no statement has.
void Trocear(std::string_view sentencia, std::vector<Token>& tokens);

}  // namespace dialecto
