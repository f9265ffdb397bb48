#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "sqlite/diario.h"
#include "sqlite/opciones_sqlite.h"

namespace sqlite {

struct CerrarSentencia {
  void operator()(sqlite3_stmt* sentencia) const noexcept { sqlite3_finalize(sentencia); }
};
using Preparada = std::unique_ptr<sqlite3_stmt, CerrarSentencia>;

/// Throws the error that the engine's last failed call left behind: a sentence for the user first,
/// the engine's own code at the end. What is wrong with a file names it, and those that are
/// attached: the engine doesn't tell which; what is wrong with a statement has the engine's own
/// text.
[[noreturn]] void Lanzar(sqlite3* base);
/// The same, of a code and a text that were kept.
[[noreturn]] void Lanzar(sqlite3* base, int codigo, std::string_view texto);
[[noreturn]] void Lanzar(int codigo, std::string_view texto, std::string_view fichero);
inline void Exigir(sqlite3* base, int codigo) {
  if (codigo != SQLITE_OK) Lanzar(base);
}

/// An open database file with what every connection needs registered on it: the collation
/// `ES`, how moments compare and texts are like a pattern, and how rows are found by number.
class Base {
 public:
  /// Throws 0x80004005 for a file that isn't there, is no database or can't be read; and, naming
  /// it, for one that is to be exclusive and is in use.
  Base(const std::string& fichero, const Opciones& opciones);

  [[nodiscard]] sqlite3* Motor() const { return base_.get(); }
  [[nodiscard]] Preparada Preparar(std::string_view texto);
  /// Runs the engine's own SQL, any number of statements. The journal's mode isn't theirs to
  /// change.
  void Ejecutar(const std::string& sql);
  /// Throws 0x80004005 when the file or its log was deleted or another one has its name: what is
  /// written would be lost with it. An exclusive one goes on with what it has open: nobody else
  /// works in it, and its user couldn't go on at all.
  void ExigirSuFichero() const;
  /// Whether a transaction is under way.
  [[nodiscard]] bool EnTransaccion() const { return sqlite3_get_autocommit(Motor()) == 0; }
  [[nodiscard]] std::size_t Preparadas() const { return preparadas_; }

 private:
  struct Cerrar {
    void operator()(sqlite3* base) const noexcept { sqlite3_close_v2(base); }
  };

  void Configurar(const std::string& fichero, const Opciones& opciones);
  void Reservar(const std::string& fichero);

  std::unique_ptr<sqlite3, Cerrar> base_;
  bool exclusiva_;
  std::optional<Diario> diario_;
  std::size_t preparadas_ = 0;
};

}  // namespace sqlite
