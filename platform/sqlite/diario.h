#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

struct sqlite3;

namespace sqlite {

/// The log that a connection writes to, in a file beside its own. It is the same one for as long as
/// the connection lives: the engine's locks keep everybody from deleting it. A process loses them
/// when any code of it closes a descriptor of the database file, and the next program to leave that
/// file then deletes the log, with all that is written to it from there on.
class Diario {
 public:
  /// Of a connection that has it open: its journal is one, and it has read.
  explicit Diario(sqlite3* base);

  /// Whether its name is gone or another file's.
  [[nodiscard]] bool SeHaIdo() const;

 private:
  struct Identidad {
    dev_t Disco;
    ino_t Nodo;
    bool operator==(const Identidad&) const = default;
  };

  [[nodiscard]] std::optional<Identidad> ElDeSuNombre() const;

  std::string nombre_;
  std::optional<Identidad> suyo_;
};

}  // namespace sqlite
