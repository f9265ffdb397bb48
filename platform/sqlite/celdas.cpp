#include "sqlite/celdas.h"

#include <algorithm>
#include <array>

#include "sqlite/momento.h"
#include "valores/numero.h"

namespace sqlite {

using services::Columna;
using services::FechaHora;
using services::Filas;
using services::TipoColumna;
using services::Valor;

namespace {

struct Declaracion {
  std::string_view nombre;
  TipoColumna tipo;
};

constexpr std::array Declaraciones = {
    Declaracion{"VARCHAR", TipoColumna::Texto},  Declaracion{"CHAR", TipoColumna::Texto},
    Declaracion{"TEXT", TipoColumna::Texto},     Declaracion{"INTEGER", TipoColumna::Entero},
    Declaracion{"INT", TipoColumna::Entero},     Declaracion{"DECIMAL", TipoColumna::Moneda},
    Declaracion{"BOOLEAN", TipoColumna::Logico}, Declaracion{"DATETIME", TipoColumna::FechaHora},
};

char Mayuscula(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

void AnadirFechaOTexto(std::string_view texto, Filas& filas) {
  if (const auto momento = LeerMomento(texto)) {
    filas.AnadirFecha(*momento);
  } else {
    filas.AnadirTexto(texto);
  }
}

void AnadirEntero(std::int64_t valor, TipoColumna tipo, Filas& filas) {
  if (tipo == TipoColumna::Logico) {
    filas.AnadirLogico(valor != 0);
  } else if (tipo == TipoColumna::Moneda || tipo == TipoColumna::Numero) {
    filas.AnadirNumero(static_cast<double>(valor));
  } else {
    filas.AnadirEntero(valor);
  }
}

std::string_view TextoDe(sqlite3_value* celda) {
  const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(celda));
  return {texto ? texto : "", static_cast<std::size_t>(sqlite3_value_bytes(celda))};
}

// A cell keeps what it holds when it isn't of its column's type: the engine lets other programs
// write such values, and a reader's conversion then says what is wrong with them. The value is
// asked of the statement once; the engine lets those do so whose statement no other thread uses.
void AnadirCelda(sqlite3_value* celda, TipoColumna tipo, Filas& filas) {
  switch (sqlite3_value_type(celda)) {
    case SQLITE_NULL:
      return filas.AnadirNulo();
    case SQLITE_INTEGER:
      if (tipo == TipoColumna::Texto) return filas.AnadirTexto(TextoDe(celda));
      return AnadirEntero(sqlite3_value_int64(celda), tipo, filas);
    case SQLITE_FLOAT:
      return filas.AnadirNumero(sqlite3_value_double(celda));
    default:
      if (tipo == TipoColumna::FechaHora) return AnadirFechaOTexto(TextoDe(celda), filas);
      return filas.AnadirTexto(TextoDe(celda));
  }
}

}  // namespace

Columna ColumnaDeclarada(std::string nombre, std::string_view declarado) {
  const auto parentesis = std::min(declarado.find('('), declarado.size());
  std::string tipo(declarado.substr(0, parentesis));
  std::transform(tipo.begin(), tipo.end(), tipo.begin(), Mayuscula);
  Columna columna{std::move(nombre), TipoColumna::Numero};
  for (const auto& declaracion : Declaraciones) {
    if (tipo == declaracion.nombre) columna.Tipo = declaracion.tipo;
  }
  if (columna.Tipo == TipoColumna::Texto && parentesis < declarado.size()) {
    const auto cierre = declarado.find(')');
    const auto cifras = declarado.substr(parentesis + 1, cierre - parentesis - 1);
    columna.Longitud = services::EnteroDeCifras(cifras).value_or(0);
  }
  return columna;
}

std::string_view TextoDeCelda(sqlite3_stmt* sentencia, int indice) {
  return TextoDe(sqlite3_column_value(sentencia, indice));
}

void Enlazar(sqlite3_stmt* sentencia, int indice, const Valor& valor) {
  if (const auto* texto = valor.Si<std::string>()) {
    sqlite3_bind_text(sentencia, indice, texto->data(), static_cast<int>(texto->size()),
                      SQLITE_STATIC);
  } else if (const auto* numero = valor.Si<double>()) {
    sqlite3_bind_double(sentencia, indice, *numero);
  } else if (const auto* entero = valor.Si<std::int32_t>()) {
    sqlite3_bind_int(sentencia, indice, *entero);
  } else if (const auto* logico = valor.Si<bool>()) {
    sqlite3_bind_int(sentencia, indice, *logico ? 1 : 0);
  } else if (const auto* momento = valor.Si<FechaHora>()) {
    const std::string iso = services::TextoIso(*momento);
    sqlite3_bind_text(sentencia, indice, iso.data(), static_cast<int>(iso.size()),
                      SQLITE_TRANSIENT);
  } else {
    sqlite3_bind_null(sentencia, indice);
  }
}

void AnadirFila(sqlite3_stmt* sentencia, const std::vector<Columna>& columnas, Filas& filas) {
  const auto cuantas = static_cast<int>(filas.Columnas());
  const auto conTipo = std::min(cuantas, static_cast<int>(columnas.size()));
  for (int i = 0; i < conTipo; ++i) {
    AnadirCelda(sqlite3_column_value(sentencia, i), columnas[static_cast<std::size_t>(i)].Tipo,
                filas);
  }
  for (int i = conTipo; i < cuantas; ++i) {
    AnadirCelda(sqlite3_column_value(sentencia, i), TipoColumna::Entero, filas);
  }
}

}  // namespace sqlite
