#include "odbc/parametros.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace odbc {

using services::TipoColumna;
using services::Valor;

namespace {

constexpr SQLSMALLINT kDecimales = 2;
constexpr SQLULEN kLargoDeMomento = 19;  // yyyy-mm-dd hh:nn:ss

SQLSMALLINT EnSql(TipoColumna tipo) {
  switch (tipo) {
    case TipoColumna::Entero:
      return SQL_INTEGER;
    case TipoColumna::Moneda:
      return SQL_DECIMAL;
    case TipoColumna::Numero:
      return SQL_DOUBLE;
    case TipoColumna::Logico:
      return SQL_BIT;
    case TipoColumna::FechaHora:
      return SQL_TYPE_TIMESTAMP;
    case TipoColumna::Texto:
      break;
  }
  return SQL_VARCHAR;
}

/// The fewest figures that give the same number again, without an exponent.
std::string Cifras(double numero) {
  std::array<char, 400> texto{};
  const auto [fin, fallo] =
      std::to_chars(texto.data(), texto.data() + texto.size(), numero, std::chars_format::fixed);
  return {texto.data(), fin};
}

SQL_TIMESTAMP_STRUCT Momento(services::FechaHora momento) {
  const auto dia = services::Descomponer(momento);
  const int hora = momento.Segundos / 3600;
  const int minuto = momento.Segundos / 60 % 60;
  return {static_cast<SQLSMALLINT>(dia.Anio),
          static_cast<SQLUSMALLINT>(dia.Mes),
          static_cast<SQLUSMALLINT>(dia.Dia),
          static_cast<SQLUSMALLINT>(hora),
          static_cast<SQLUSMALLINT>(minuto),
          static_cast<SQLUSMALLINT>(momento.Segundos % 60),
          0};
}

TipoColumna TipoDe(const Valor& valor) {
  if (valor.Si<double>()) return TipoColumna::Numero;
  if (valor.Si<std::int32_t>()) return TipoColumna::Entero;
  if (valor.Si<services::FechaHora>()) return TipoColumna::FechaHora;
  return valor.Si<bool>() ? TipoColumna::Logico : TipoColumna::Texto;
}

/// A column of whole numbers holds none that equals it, and a server refuses to look for it.
bool NoEsEntero(const Valor& valor, TipoColumna tipo) {
  return tipo == TipoColumna::Entero && valor.Si<double>();
}

}  // namespace

Parametros ParametrosDe(const dialecto::Sentencia& sentencia) {
  Parametros parametros;
  for (std::size_t i = 0; i < sentencia.Parametros.size(); ++i) {
    const Valor& valor = sentencia.Parametros[i];
    const auto tipo = sentencia.Traducida->Tipos[i].value_or(TipoDe(valor));
    parametros.Anadir(NoEsEntero(valor, tipo) ? Valor() : valor, tipo);
  }
  return parametros;
}

void Parametros::Anadir(const services::Valor& valor, TipoColumna tipo) {
  Enlazado& suyo = valores_.emplace_back();
  suyo.enSql = EnSql(tipo);
  if (const auto* texto = valor.Si<std::string>()) {
    suyo.texto = *texto;
    suyo.largo = static_cast<SQLLEN>(texto->size());
  } else if (const auto* numero = valor.Si<double>()) {
    suyo.texto = Cifras(*numero);
    suyo.largo = static_cast<SQLLEN>(suyo.texto.size());
  } else if (const auto* entero = valor.Si<std::int32_t>()) {
    suyo.enC = SQL_C_SLONG;
    suyo.entero = *entero;
    suyo.largo = 0;
  } else if (const auto* momento = valor.Si<services::FechaHora>()) {
    suyo.enC = SQL_C_TYPE_TIMESTAMP;
    suyo.momento = Momento(*momento);
    suyo.largo = 0;
  } else if (const auto* logico = valor.Si<bool>()) {
    suyo.enC = SQL_C_BIT;
    suyo.logico = *logico ? 1 : 0;
    suyo.largo = 0;
  }
}

SQLRETURN Parametros::Enlazar(SQLHSTMT orden) {
  SQLUSMALLINT lugar = 0;
  for (Enlazado& valor : valores_) {
    const bool deTexto = valor.enC == SQL_C_CHAR;
    const bool deMomento = valor.enSql == SQL_TYPE_TIMESTAMP;
    const SQLULEN ancho = deMomento ? kLargoDeMomento : std::max<SQLULEN>(valor.texto.size(), 1);
    const SQLRETURN resultado =
        SQLBindParameter(orden, ++lugar, SQL_PARAM_INPUT, valor.enC, valor.enSql, ancho,
                         valor.enSql == SQL_DECIMAL ? kDecimales : SQLSMALLINT{0},
                         deTexto ? static_cast<SQLPOINTER>(valor.texto.data()) : &valor.entero,
                         static_cast<SQLLEN>(valor.texto.size()), &valor.largo);
    if (!SQL_SUCCEEDED(resultado)) return resultado;
  }
  return SQL_SUCCESS;
}

}  // namespace odbc
