#include "sqlite/orden.h"

#include "sqlite/fichero.h"
#include "valores/texto.h"

namespace sqlite {

namespace {

int Comparar(void*, int bytesA, const void* a, int bytesB, const void* b) {
  return services::CompararTexto({static_cast<const char*>(a), static_cast<std::size_t>(bytesA)},
                                 {static_cast<const char*>(b), static_cast<std::size_t>(bytesB)});
}

}  // namespace

void RegistrarOrden(sqlite3* base) {
  Exigir(base, sqlite3_create_collation(base, "ES", SQLITE_UTF8, nullptr, Comparar));
}

}  // namespace sqlite
