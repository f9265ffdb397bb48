#include "salvaguarda/adjunta.h"

#include <filesystem>

#include "salvaguarda/sql.h"
#include "valores/error.h"

namespace salvaguarda::sql {

Adjunta::Adjunta(sqlite::Conexion& base, const std::string& fichero, std::string_view nombre)
    : base_(base), nombre_(nombre) {
  std::error_code fallo;
  if (!fichero.empty() && !std::filesystem::exists(fichero, fallo)) {
    throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                   "No se puede abrir " + fichero + ": no existe");
  }
  base_.Adjuntar(fichero, nombre);
}

// A file that can't be let go of now goes with the connection.
Adjunta::~Adjunta() {
  try {
    base_.Ejecutar("DETACH " + nombre_);
  } catch (const services::ErrorEjecucion&) {
    return;
  }
}

Transaccion::Transaccion(sqlite::Conexion& base) : base_(base) {
  base_.Ejecutar("BEGIN");
}

Transaccion::~Transaccion() {
  if (!enCurso_) return;
  try {
    base_.Ejecutar("ROLLBACK");
  } catch (const services::ErrorEjecucion&) {
    return;
  }
}

void Transaccion::Terminar() {
  base_.Ejecutar("COMMIT");
  enCurso_ = false;
}

}  // namespace salvaguarda::sql
