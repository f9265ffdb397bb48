#pragma once

#include <string>
#include <string_view>

#include "sqlite/conexion_sqlite.h"

namespace salvaguarda::sql {

/// Another file under a name of its own, for as long as it lives. Throws what the engine throws,
/// and for one that isn't there: the engine would make an empty one. Without a name it is one that
/// nobody else sees.
class Adjunta {
 public:
  Adjunta(sqlite::Conexion& base, const std::string& fichero, std::string_view nombre);
  ~Adjunta();
  Adjunta(const Adjunta&) = delete;
  Adjunta& operator=(const Adjunta&) = delete;

 private:
  sqlite::Conexion& base_;
  std::string nombre_;
};

/// A transaction, undone unless it is finished.
class Transaccion {
 public:
  explicit Transaccion(sqlite::Conexion& base);
  ~Transaccion();
  Transaccion(const Transaccion&) = delete;
  Transaccion& operator=(const Transaccion&) = delete;
  void Terminar();

 private:
  sqlite::Conexion& base_;
  bool enCurso_ = true;
};

}  // namespace salvaguarda::sql
