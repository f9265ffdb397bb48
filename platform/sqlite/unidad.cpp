#include "sqlite/unidad.h"

#include "services/error.h"

namespace sqlite {

namespace {

[[noreturn]] void LanzarPerdida() {
  throw services::ErrorEjecucion(
      services::error::FalloDeConexion,
      "La base de datos ha deshecho los últimos cambios, que no se han guardado (SQLite " +
          std::to_string(SQLITE_ABORT_ROLLBACK) + ": transaction rolled back)");
}

}  // namespace

void Unidad::Paso(std::string_view texto) {
  const Prestada sentencia = almacen_.Tomar(texto);
  if (sqlite3_step(sentencia.get()) != SQLITE_DONE) Lanzar(base_.Motor());
}

void Unidad::AntesDeEscribir() {
  if (estado_ == Estado::EnCurso && !base_.EnTransaccion()) estado_ = Estado::Perdida;
  if (estado_ == Estado::EnCurso) return;
  if (estado_ == Estado::Perdida) LanzarPerdida();
  if (agrupa_) {
    Paso("BEGIN IMMEDIATE");
    estado_ = Estado::EnCurso;
  }
  ++transacciones_;
}

void Unidad::Escribir(sqlite3_stmt* sentencia) {
  AntesDeEscribir();
  if (sqlite3_step(sentencia) == SQLITE_DONE) {
    sqlite3_reset(sentencia);
    return;
  }
  const int codigo = sqlite3_extended_errcode(base_.Motor());
  const std::string texto = sqlite3_errmsg(base_.Motor());
  sqlite3_reset(sentencia);
  if (estado_ == Estado::EnCurso && !base_.EnTransaccion()) estado_ = Estado::Perdida;
  Lanzar(codigo, texto);
}

void Unidad::Terminar() {
  if (estado_ == Estado::SinEmpezar) return;
  if (estado_ == Estado::Perdida || !base_.EnTransaccion()) {
    estado_ = Estado::SinEmpezar;
    LanzarPerdida();
  }
  try {
    Paso("COMMIT");
    estado_ = Estado::SinEmpezar;
  } catch (const services::ErrorEjecucion&) {
    Abandonar();
    throw;
  }
}

void Unidad::Abandonar() noexcept {
  if (estado_ != Estado::SinEmpezar && base_.EnTransaccion()) {
    sqlite3_exec(base_.Motor(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
  estado_ = Estado::SinEmpezar;
}

}  // namespace sqlite
