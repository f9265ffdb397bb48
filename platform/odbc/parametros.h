#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/interprete.h"
#include "odbc/manejo.h"

// How values travel to a server: texts as UTF-8, amounts by their figures, since a number of the
// processor's has no cents, whole numbers, Booleans and moments as they are.

namespace odbc {

/// The values of a statement's `?`, in their order.
class Parametros {
 public:
  /// `tipo` is that of its column; a Null has no other.
  void Anadir(const services::Valor& valor, services::TipoColumna tipo);
  [[nodiscard]] bool Ninguno() const { return valores_.empty(); }
  /// Those of another statement, after these.
  void Anadir(const Parametros& otros) {
    valores_.insert(valores_.end(), otros.valores_.begin(), otros.valores_.end());
  }
  /// Binds them to a statement; they must stay as they are until it has run.
  [[nodiscard]] SQLRETURN Enlazar(SQLHSTMT orden);

 private:
  struct Enlazado {
    SQLSMALLINT enC = SQL_C_CHAR;
    SQLSMALLINT enSql = SQL_VARCHAR;
    SQLLEN largo = SQL_NULL_DATA;
    std::string texto = {};
    union {
      SQLINTEGER entero = 0;
      unsigned char logico;
      SQL_TIMESTAMP_STRUCT momento;
    };
  };

  std::vector<Enlazado> valores_;
};

/// Those of a statement that was read: each literal as the column wants it that it is compared
/// with.
[[nodiscard]] Parametros ParametrosDe(const dialecto::Sentencia& sentencia);

}  // namespace odbc
