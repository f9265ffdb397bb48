#include "sqlite/diario.h"

#include <sqlite3.h>
#include <sys/stat.h>

namespace sqlite {

Diario::Diario(sqlite3* base)
    : nombre_(sqlite3_filename_wal(sqlite3_db_filename(base, "main"))), suyo_(ElDeSuNombre()) {}

bool Diario::SeHaIdo() const {
  return ElDeSuNombre() != suyo_;
}

std::optional<Diario::Identidad> Diario::ElDeSuNombre() const {
  struct stat estado {};
  if (::stat(nombre_.c_str(), &estado) != 0) return std::nullopt;
  return Identidad{estado.st_dev, estado.st_ino};
}

}  // namespace sqlite
