#include "sqlite/fichero.h"

#include <filesystem>

#include "sqlite/funciones.h"
#include "sqlite/numeros.h"
#include "sqlite/orden.h"
#include "valores/error.h"

namespace sqlite {

namespace {

int ModoDe(const Opciones& opciones) {
  if (opciones.SoloLectura) return SQLITE_OPEN_READONLY;
  return SQLITE_OPEN_READWRITE | (opciones.Crear ? SQLITE_OPEN_CREATE : 0);
}

sqlite3* Abrir(const std::string& fichero, const Opciones& opciones) {
  std::error_code fallo;
  const auto estado = std::filesystem::status(fichero, fallo);
  if (!opciones.Crear && !std::filesystem::exists(estado)) {
    Lanzar(SQLITE_CANTOPEN, "", "no existe " + fichero);
  }
  sqlite3* base = nullptr;
  const int codigo =
      sqlite3_open_v2(fichero.c_str(), &base, ModoDe(opciones) | SQLITE_OPEN_NOMUTEX, nullptr);
  if (codigo == SQLITE_OK) return base;
  sqlite3_close_v2(base);
  Lanzar(codigo, sqlite3_errstr(codigo), fichero);
}

std::string PrimerTexto(Base& base, std::string_view sql) {
  const Preparada sentencia = base.Preparar(sql);
  if (sqlite3_step(sentencia.get()) != SQLITE_ROW) Lanzar(base.Motor());
  return reinterpret_cast<const char*>(sqlite3_column_text(sentencia.get(), 0));
}

}  // namespace

Base::Base(const std::string& fichero, const Opciones& opciones)
    : base_(Abrir(fichero, opciones)), exclusiva_(opciones.Exclusiva) {
  Configurar(fichero, opciones);
}

// Taken before the journal is looked at, so that it is never shared: the lock is then the file's
// own, which the system drops with the process. Waiting for another program's would only put the
// answer off.
void Base::Reservar(const std::string& fichero) {
  Ejecutar("PRAGMA main.locking_mode = EXCLUSIVE");
  const int codigo = sqlite3_exec(Motor(), "BEGIN EXCLUSIVE; COMMIT", nullptr, nullptr, nullptr);
  if (codigo == SQLITE_OK) return;
  if ((codigo & 0xFF) != SQLITE_BUSY) Lanzar(Motor());
  throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                 "El fichero " + fichero +
                                     " está en uso por otro programa (SQLite " +
                                     std::to_string(codigo) + ": " + sqlite3_errmsg(Motor()) + ")");
}

// The journal's mode stays in the file, so it is only set where it isn't yet: setting it takes a
// lock that nobody else may hold.
void Base::Configurar(const std::string& fichero, const Opciones& opciones) {
  sqlite3_extended_result_codes(Motor(), 1);
  // A file that is new; another keeps its own. With pages of twice the engine's size the indexes
  // are flatter, and rows in no order of their keys go in a tenth sooner.
  if (opciones.Crear) Ejecutar("PRAGMA main.page_size = 8192");
  if (opciones.Exclusiva) Reservar(fichero);
  sqlite3_busy_timeout(Motor(), opciones.EsperaMs);
  sqlite3_db_config(Motor(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  RegistrarOrden(Motor());
  RegistrarFunciones(Motor());
  RegistrarNumeros(Motor());
  std::string diario = PrimerTexto(*this, "PRAGMA journal_mode");
  if (diario != "wal" && !sqlite3_db_readonly(Motor(), "main")) {
    diario = PrimerTexto(*this, "PRAGMA journal_mode = WAL");
  }
  const bool completa = opciones.Durabilidad == Sincronizacion::Completa;
  Ejecutar(completa ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
  // A commit of thousands of invoices goes back and forth over the indexes, and with the engine's
  // own 2 MB writes and reads again what it has just let go of. Memory is taken as pages are read.
  Ejecutar("PRAGMA cache_size = -65536");
  Ejecutar("PRAGMA temp_store = MEMORY; SELECT count(*) FROM sqlite_schema");
  if (!exclusiva_ && diario == "wal") diario_.emplace(Motor());
  preparadas_ = 0;
}

Preparada Base::Preparar(std::string_view texto) {
  sqlite3_stmt* sentencia = nullptr;
  ++preparadas_;
  Exigir(Motor(), sqlite3_prepare_v3(Motor(), texto.data(), static_cast<int>(texto.size()),
                                     SQLITE_PREPARE_PERSISTENT, &sentencia, nullptr));
  return Preparada(sentencia);
}

void Base::ExigirSuFichero() const {
  int movido = 0;
  if (!exclusiva_) sqlite3_file_control(Motor(), "main", SQLITE_FCNTL_HAS_MOVED, &movido);
  if (movido != 0 || (diario_ && diario_->SeHaIdo())) Lanzar(Motor(), SQLITE_READONLY_DBMOVED, "");
}

void Base::Ejecutar(const std::string& sql) {
  Exigir(Motor(), sqlite3_exec(Motor(), sql.c_str(), nullptr, nullptr, nullptr));
}

}  // namespace sqlite
