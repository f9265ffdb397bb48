#include "salvaguarda/comienzo.h"

#include <algorithm>
#include <vector>

#include "dialecto/formas.h"
#include "dialecto/sentencias.h"

namespace salvaguarda {
namespace {

using dialecto::Token;

/// How both statements begin, and no other of the thousands that a commit runs. A load brings the
/// concepts' descriptions with it.
constexpr std::string_view kPrincipio = "SELECT DISTINCT ProvFacturas.*";
constexpr std::string_view kDeCarga = "SELECT DISTINCT ProvFacturas.*, ";

/// The two dates, in the order in which both statements have them.
Rango RangoDe(const std::vector<Token>& tokens) {
  Rango rango;
  for (const Token& token : tokens) {
    if (token.clase != dialecto::ClaseToken::Texto) continue;
    (rango.Desde.empty() ? rango.Desde : rango.Hasta) = token.texto;
  }
  return rango;
}

}  // namespace

std::optional<Comienzo> Reconocer(std::string_view sentencia) {
  if (!sentencia.starts_with(kPrincipio)) return std::nullopt;
  std::vector<Token> tokens;
  dialecto::Trocear(sentencia, tokens);
  const std::string forma = dialecto::Forma(sentencia, tokens);
  const auto sentencias = dialecto::Sentencias();
  if (std::ranges::find(sentencias, forma, &dialecto::Escrita::Texto) == sentencias.end()) {
    return std::nullopt;
  }
  const bool carga = forma.starts_with(kDeCarga);
  return Comienzo{carga ? Comienzo::Tarea::Carga : Comienzo::Tarea::Grabacion, RangoDe(tokens)};
}

bool EsVaciado(std::string_view sentencia) {
  return sentencia == "DELETE TempProvFacturas.* FROM TempProvFacturas";
}

}  // namespace salvaguarda
