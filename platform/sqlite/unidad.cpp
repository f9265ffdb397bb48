#include "sqlite/unidad.h"

#include <utility>

namespace sqlite {

namespace {

using services::ErrorEjecucion;

ErrorEjecucion Deshecha() {
  return {services::error::FalloDeConexion,
          "La base de datos ha deshecho los últimos cambios, que no se han guardado (SQLite " +
              std::to_string(SQLITE_ABORT_ROLLBACK) + ": transaction rolled back)"};
}

}  // namespace

void Unidad::Paso(std::string_view texto) {
  const Prestada sentencia = almacen_.Tomar(texto);
  if (sqlite3_step(sentencia.get()) != SQLITE_DONE) Lanzar(base_.Motor());
}

template <class Accion>
void Unidad::Intentar(Accion accion) {
  try {
    accion();
  } catch (const ErrorEjecucion& fallo) {
    const bool delFichero = fallo.Numero() == services::error::FalloDeConexion;
    if (agrupa_ && (delFichero || (enCurso_ && !base_.EnTransaccion()))) perdida_ = fallo;
    throw;
  }
}

void Unidad::AntesDeEscribir() {
  if (enCurso_ && !perdida_ && !base_.EnTransaccion()) perdida_ = Deshecha();
  if (perdida_) throw ErrorEjecucion(*perdida_);
  if (enCurso_) return;
  TerminarLectura();
  Intentar([this] {
    base_.ExigirSuFichero();
    if (agrupa_) Paso("BEGIN IMMEDIATE");
  });
  enCurso_ = agrupa_;
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
  Intentar([&] { Lanzar(base_.Motor(), codigo, texto); });
}

void Unidad::Terminar() {
  if (enCurso_ && !perdida_ && !base_.EnTransaccion()) perdida_ = Deshecha();
  if (perdida_) {
    const ErrorEjecucion causa = *perdida_;
    Abandonar();
    throw ErrorEjecucion(causa);
  }
  if (!enCurso_) return;
  try {
    base_.ExigirSuFichero();
    Paso("COMMIT");
    enCurso_ = false;
  } catch (const ErrorEjecucion&) {
    Abandonar();
    throw;
  }
}

// It only says that the next statements are of one transaction: what keeps them from reading is
// theirs to tell.
bool Unidad::EmpezarLectura() noexcept {
  if (leyendo_ || enCurso_ || base_.EnTransaccion()) return false;
  leyendo_ = sqlite3_exec(base_.Motor(), "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK;
  return leyendo_;
}

// There is nothing to be made durable, and this can't be refused.
void Unidad::TerminarLectura() noexcept {
  if (!std::exchange(leyendo_, false) || !base_.EnTransaccion()) return;
  sqlite3_exec(base_.Motor(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Unidad::Agrupar(bool agrupa) {
  Terminar();
  agrupa_ = agrupa;
}

void Unidad::Abandonar() noexcept {
  if (enCurso_ && base_.EnTransaccion()) {
    sqlite3_exec(base_.Motor(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
  enCurso_ = false;
  perdida_.reset();
}

}  // namespace sqlite
