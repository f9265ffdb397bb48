#pragma once

#include <cstddef>
#include <string>

namespace odbc {

struct Opciones {
  /// Whether writes are gathered until `TerminarUnidad`; otherwise each is on its own.
  bool UnidadDeTrabajo = true;
  /// The schema to be in, or the database where a server has no schemas in one; empty for that of
  /// the connection text.
  std::string Esquema = {};
  /// Whether any well-formed statement is run, and not those of the system alone: for tests and
  /// tools.
  bool CualquierSentencia = false;
};

/// What a connection has done since it was opened.
struct Estadistica {
  std::size_t Preparadas = 0;     ///< statements handed to the server to be understood
  std::size_t Transacciones = 0;  ///< units begun, or writes on their own
  std::size_t Viajes = 0;         ///< times that the server was asked something
};

}  // namespace odbc
