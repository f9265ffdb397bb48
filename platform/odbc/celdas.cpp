#include "odbc/celdas.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

#include "valores/error.h"

namespace odbc {

using services::Filas;
using services::TipoColumna;

namespace {

constexpr std::size_t kFilasJuntas = 256;
constexpr std::size_t kBytesPorSigno = 4;  // of UTF-8, at most
constexpr std::size_t kAnchoDeNumero = 64;
constexpr std::size_t kTrozo = 4096;

SQLSMALLINT EnC(TipoColumna tipo) {
  switch (tipo) {
    case TipoColumna::Logico:
      return SQL_C_BIT;
    case TipoColumna::FechaHora:
      return SQL_C_TYPE_TIMESTAMP;
    default:
      return SQL_C_CHAR;
  }
}

std::size_t AnchoDe(const services::Columna& columna) {
  switch (columna.Tipo) {
    case TipoColumna::Logico:
      return sizeof(unsigned char);
    case TipoColumna::FechaHora:
      return sizeof(SQL_TIMESTAMP_STRUCT);
    case TipoColumna::Texto:
      if (columna.Longitud == 0) return 0;
      return static_cast<std::size_t>(columna.Longitud) * kBytesPorSigno + 1;
    default:
      return kAnchoDeNumero;
  }
}

template <class T>
T Leer(const char* valor) {
  T leido;
  std::memcpy(&leido, valor, sizeof(T));
  return leido;
}

/// A server may keep a moment that is none, such as one of the day 0 of a month.
void AnadirMomento(const SQL_TIMESTAMP_STRUCT& momento, Filas& filas) {
  const bool existe = momento.year >= 100 && momento.month >= 1 && momento.month <= 12 &&
                      momento.day >= 1 &&
                      momento.day <= services::DiasDelMes(momento.year, momento.month);
  if (!existe) {
    return filas.AnadirTexto(std::to_string(momento.year) + "-" + std::to_string(momento.month) +
                             "-" + std::to_string(momento.day));
  }
  filas.AnadirFecha(services::HacerFecha(momento.year, momento.month, momento.day, momento.hour,
                                         momento.minute, momento.second));
}

/// As the server writes them, but for the point: a driver may put the comma of the user's locale in
/// its place.
void AnadirNumero(std::string_view dichas, Filas& filas) {
  std::array<char, kAnchoDeNumero> sitio;
  const auto punto = std::ranges::replace_copy(dichas, sitio.begin(), ',', '.').out;
  const std::string_view cifras(sitio.data(), static_cast<std::size_t>(punto - sitio.begin()));
  double numero = 0;
  const auto [fin, fallo] = std::from_chars(cifras.data(), cifras.data() + cifras.size(), numero);
  if (fallo == std::errc() && fin == cifras.data() + cifras.size()) {
    filas.AnadirNumero(numero);
  } else {
    filas.AnadirTexto(dichas);
  }
}

/// In figures: drivers make a whole number of whatever a column has come to hold, without a word.
void AnadirEntero(std::string_view cifras, Filas& filas) {
  std::int32_t entero = 0;
  const auto [fin, fallo] = std::from_chars(cifras.data(), cifras.data() + cifras.size(), entero);
  if (fallo != std::errc() || fin != cifras.data() + cifras.size()) throw TablasCambiadas();
  filas.AnadirEntero(entero);
}

}  // namespace

Celdas::Celdas(const std::vector<services::Columna>& columnas) : juntas_(kFilasJuntas) {
  for (const services::Columna& columna : columnas) {
    columnas_.push_back({columna.Tipo, EnC(columna.Tipo), AnchoDe(columna)});
    if (columnas_.back().ancho == 0) juntas_ = 1;
  }
  for (Columna& columna : columnas_) {
    columna.valores.resize(columna.ancho * juntas_);
    columna.largos.resize(juntas_);
  }
}

SQLRETURN Celdas::Enlazar(SQLHSTMT orden) {
  SQLSetStmtAttr(orden, SQL_ATTR_ROW_ARRAY_SIZE, ComoPuntero(juntas_), 0);
  SQLSetStmtAttr(orden, SQL_ATTR_ROWS_FETCHED_PTR, &traidas_, 0);
  SQLUSMALLINT lugar = 0;
  for (Columna& columna : columnas_) {
    ++lugar;
    if (columna.ancho == 0) continue;
    const SQLRETURN resultado =
        SQLBindCol(orden, lugar, columna.enC, columna.valores.data(),
                   static_cast<SQLLEN>(columna.ancho), columna.largos.data());
    if (!SQL_SUCCEEDED(resultado)) return resultado;
  }
  return SQL_SUCCESS;
}

SQLRETURN Celdas::Traer(SQLHSTMT orden, Filas& filas) {
  const SQLRETURN resultado = SQLFetch(orden);
  if (!SQL_SUCCEEDED(resultado)) return resultado;
  for (std::size_t fila = 0; fila < traidas_; ++fila) {
    for (std::size_t i = 0; i < columnas_.size(); ++i) {
      if (columnas_[i].ancho > 0) {
        AnadirCelda(columnas_[i], fila, filas);
      } else if (const SQLRETURN larga = AnadirLarga(orden, i, filas); !SQL_SUCCEEDED(larga)) {
        return larga;
      }
    }
  }
  return SQL_SUCCESS;
}

void Celdas::AnadirCelda(const Columna& columna, std::size_t fila, Filas& filas) const {
  const SQLLEN largo = columna.largos[fila];
  const char* valor = columna.valores.data() + fila * columna.ancho;
  if (largo == SQL_NULL_DATA) return filas.AnadirNulo();
  switch (columna.tipo) {
    case TipoColumna::Logico:
      return filas.AnadirLogico(*valor != 0);
    case TipoColumna::FechaHora:
      return AnadirMomento(Leer<SQL_TIMESTAMP_STRUCT>(valor), filas);
    default:
      break;
  }
  // A column that was narrower when it was looked up: nothing of it is cut.
  if (static_cast<std::size_t>(largo) >= columna.ancho) throw TablasCambiadas();
  const std::string_view texto(valor, static_cast<std::size_t>(largo));
  if (columna.tipo == TipoColumna::Texto) return filas.AnadirTexto(texto);
  if (columna.tipo == TipoColumna::Entero) return AnadirEntero(texto, filas);
  AnadirNumero(texto, filas);
}

SQLRETURN Celdas::AnadirLarga(SQLHSTMT orden, std::size_t columna, Filas& filas) {
  larga_.clear();
  while (true) {
    std::array<char, kTrozo> trozo;
    SQLLEN largo = 0;
    const SQLRETURN resultado =
        SQLGetData(orden, static_cast<SQLUSMALLINT>(columna + 1), SQL_C_CHAR, trozo.data(),
                   static_cast<SQLLEN>(trozo.size()), &largo);
    if (resultado == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(resultado)) return resultado;
    if (largo == SQL_NULL_DATA) {
      filas.AnadirNulo();
      return SQL_SUCCESS;
    }
    const bool sigue = largo == SQL_NO_TOTAL || largo >= static_cast<SQLLEN>(trozo.size());
    const auto hay = sigue ? trozo.size() - 1 : static_cast<std::size_t>(largo);
    larga_.insert(larga_.end(), trozo.data(), trozo.data() + hay);
    if (!sigue) break;
  }
  filas.AnadirTexto(std::string_view(larga_.data(), larga_.size()));
  return SQL_SUCCESS;
}

}  // namespace odbc
