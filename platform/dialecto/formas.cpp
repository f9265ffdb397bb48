#include "dialecto/formas.h"

#include <algorithm>

#include "dialecto/sentencias.h"

namespace dialecto {

using services::ModoApertura;

namespace {

constexpr std::string_view kBlancos = " \t\r\n";
/// As many as a number that is compared holds, whichever they are.
constexpr std::size_t kCifras = 15;

bool EsEntero(std::string_view numero) {
  return numero.size() <= kCifras && numero.find('.') == std::string_view::npos;
}

bool EsValor(const Token& token) {
  switch (token.clase) {
    case ClaseToken::Texto:
      return token.texto.find('\'') == std::string_view::npos;
    case ClaseToken::Numero:
      return EsEntero(token.texto);
    case ClaseToken::Fecha:
      return true;
    default:
      return false;
  }
}

bool EsMenos(std::span<const Token> tokens, std::size_t token) {
  return token < tokens.size() && tokens[token].simbolo == Simbolo::Menos;
}

/// A number is left out with a sign that stands at it. One that stands apart is no part of a value,
/// nor are two.
bool EsValorConSuSigno(std::span<const Token> tokens, std::size_t token) {
  if (!EsValor(tokens[token])) return false;
  if (token == 0 || !EsMenos(tokens, token - 1)) return true;
  const char* const signo = tokens[token - 1].texto.data();
  return signo + 1 == tokens[token].texto.data() && (token == 1 || !EsMenos(tokens, token - 2));
}

/// A number takes its sign and the blanks around it along: a code may be stored with some.
void PonerNumero(std::string& forma) {
  if (forma.ends_with('-')) forma.pop_back();
  forma.resize(forma.find_last_not_of(kBlancos) + 1);
  forma += " 0 ";
}

constexpr std::uint8_t Bit(ModoApertura modo) {
  return static_cast<std::uint8_t>(1U << static_cast<unsigned>(modo));
}

constexpr std::uint8_t kTodos =
    Bit(ModoApertura::Lectura) | Bit(ModoApertura::Optimista) | Bit(ModoApertura::Pesimista);

}  // namespace

std::string Forma(std::string_view sentencia, std::span<const Token> tokens) {
  std::string forma;
  forma.reserve(sentencia.size());
  std::size_t desde = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (!EsValorConSuSigno(tokens, i)) continue;
    const auto inicio = static_cast<std::size_t>(token.texto.data() - sentencia.data());
    forma += sentencia.substr(desde, inicio - desde);
    desde = inicio + token.texto.size();
    if (token.clase != ClaseToken::Numero) continue;
    PonerNumero(forma);
    desde = std::min(sentencia.find_first_not_of(kBlancos, desde), sentencia.size());
  }
  forma += sentencia.substr(desde);
  return forma;
}

Formas::Formas(std::span<const std::string> propias) {
  std::vector<Token> tokens;
  const auto anadir = [&](std::string_view sentencia, std::uint8_t modos) {
    Trocear(sentencia, tokens);
    modos_[Forma(sentencia, tokens)] |= modos;
  };
  for (const Escrita& escrita : Sentencias()) anadir(escrita.Texto, Bit(escrita.Modo));
  for (const std::string& propia : propias) anadir(propia, kTodos);
}

bool Formas::Tiene(const std::string& forma, ModoApertura modo) const {
  const auto hallada = modos_.find(forma);
  return hallada != modos_.end() && (hallada->second & Bit(modo)) != 0;
}

}  // namespace dialecto
