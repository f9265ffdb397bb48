#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "datos/conexion.h"
#include "odbc/manejo.h"
#include "valores/error.h"

namespace odbc {

/// The tables aren't those that were looked up.
class TablasCambiadas final : public services::ErrorEjecucion {
 public:
  TablasCambiadas()
      : ErrorEjecucion(services::error::FalloDeConexion,
                       "Otro programa ha cambiado las tablas; hay que abrirlas de nuevo") {}
};

/// The place where the rows of a statement are put as they are fetched, many at once; one by one
/// where a column has no limit, whose texts are then asked for.
class Celdas {
 public:
  /// For a statement with these columns.
  explicit Celdas(const std::vector<services::Columna>& columnas);
  Celdas(const Celdas&) = delete;
  Celdas& operator=(const Celdas&) = delete;

  /// Before the statement is fetched from.
  [[nodiscard]] SQLRETURN Enlazar(SQLHSTMT orden);
  /// Fetches the next of them; `SQL_NO_DATA` when there is none left.
  [[nodiscard]] SQLRETURN Traer(SQLHSTMT orden, services::Filas& filas);

 private:
  struct Columna {
    services::TipoColumna tipo;
    SQLSMALLINT enC;
    /// Of a cell; 0 where it is asked for.
    std::size_t ancho;
    std::vector<char> valores = {};
    std::vector<SQLLEN> largos = {};
  };

  void AnadirCelda(const Columna& columna, std::size_t fila, services::Filas& filas) const;
  [[nodiscard]] SQLRETURN AnadirLarga(SQLHSTMT orden, std::size_t columna, services::Filas& filas);

  std::vector<Columna> columnas_;
  std::size_t juntas_;
  SQLULEN traidas_ = 0;
  std::vector<char> larga_;
};

}  // namespace odbc
