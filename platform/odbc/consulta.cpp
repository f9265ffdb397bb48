#include "odbc/consulta.h"

#include <array>

namespace odbc {

using services::TipoColumna;

namespace {

TipoColumna TipoDe(int tipo) {
  switch (tipo) {
    case SQL_INTEGER:
    case SQL_SMALLINT:
      return TipoColumna::Entero;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
      return TipoColumna::Moneda;
    case SQL_BIGINT:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return TipoColumna::Numero;
    case SQL_BIT:
    case SQL_TINYINT:
      return TipoColumna::Logico;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return TipoColumna::FechaHora;
    default:
      return TipoColumna::Texto;
  }
}

/// A text without a limit of its own tells what its server could hold.
constexpr int kMasLongitud = 4000;

}  // namespace

services::Columna ColumnaDe(std::string nombre, int tipo, int ancho) {
  services::Columna columna{std::move(nombre), TipoDe(tipo)};
  const bool larga = tipo == SQL_LONGVARCHAR || tipo == SQL_WLONGVARCHAR;
  if (columna.Tipo == TipoColumna::Texto && !larga && ancho <= kMasLongitud) {
    columna.Longitud = ancho;
  }
  return columna;
}

std::vector<services::Columna> Descritas(Enlace& enlace, const ManejoDeOrden& orden) {
  SQLSMALLINT cuantas = 0;
  enlace.Comprobar(SQLNumResultCols(orden.get(), &cuantas), orden.Suyo);
  std::vector<services::Columna> columnas;
  for (SQLSMALLINT i = 1; i <= cuantas; ++i) {
    std::array<char, 256> nombre{};
    SQLSMALLINT largo = 0;
    SQLSMALLINT tipo = 0;
    SQLULEN ancho = 0;
    enlace.Comprobar(SQLDescribeCol(orden.get(), static_cast<SQLUSMALLINT>(i),
                                    reinterpret_cast<SQLCHAR*>(nombre.data()),
                                    static_cast<SQLSMALLINT>(nombre.size()), &largo, &tipo, &ancho,
                                    nullptr, nullptr),
                     orden.Suyo);
    columnas.push_back(ColumnaDe(nombre.data(), tipo, static_cast<int>(ancho)));
  }
  return columnas;
}

std::vector<FilaDeTextos> LeerTextos(Enlace& enlace, const ManejoDeOrden& orden,
                                     const std::vector<SQLUSMALLINT>& lugares) {
  std::vector<FilaDeTextos> filas;
  while (true) {
    const SQLRETURN resultado = SQLFetch(orden.get());
    enlace.Comprobar(resultado, orden.Suyo);
    if (resultado == SQL_NO_DATA) return filas;
    FilaDeTextos& fila = filas.emplace_back();
    for (const SQLUSMALLINT lugar : lugares) {
      std::array<char, 512> texto{};
      SQLLEN largo = 0;
      enlace.Comprobar(SQLGetData(orden.get(), lugar, SQL_C_CHAR, texto.data(),
                                  static_cast<SQLLEN>(texto.size()), &largo),
                       orden.Suyo);
      fila.emplace_back(largo == SQL_NULL_DATA ? "" : texto.data());
    }
  }
}

}  // namespace odbc
