#include "sqlite/funciones.h"

#include <cstring>
#include <string_view>

#include "services/texto.h"
#include "sqlite/base.h"
#include "sqlite/valores.h"

namespace sqlite {

namespace {

// Most comparisons of a key search are of equal texts, which need no letter looked at.
int Comparar(void*, int bytesA, const void* a, int bytesB, const void* b) {
  if (bytesA == bytesB && std::memcmp(a, b, static_cast<std::size_t>(bytesA)) == 0) return 0;
  return services::CompararTexto({static_cast<const char*>(a), static_cast<std::size_t>(bytesA)},
                                 {static_cast<const char*>(b), static_cast<std::size_t>(bytesB)});
}

std::string_view Texto(sqlite3_value* valor) {
  const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valor));
  return {texto ? texto : "", static_cast<std::size_t>(sqlite3_value_bytes(valor))};
}

bool EsNulo(sqlite3_value* valor) {
  return sqlite3_value_type(valor) == SQLITE_NULL;
}

// The engine writes `x LIKE y` as like(y, x).
void Like(sqlite3_context* contexto, int, sqlite3_value** valores) {
  if (EsNulo(valores[0]) || EsNulo(valores[1])) return sqlite3_result_null(contexto);
  sqlite3_result_int(contexto, services::Coincide(Texto(valores[1]), Texto(valores[0])) ? 1 : 0);
}

void TextoFecha(sqlite3_context* contexto, int, sqlite3_value** valores) {
  if (EsNulo(valores[0])) return sqlite3_result_null(contexto);
  const auto guardado = Texto(valores[0]);
  const auto momento = LeerIso(guardado);
  const std::string texto = momento ? services::TextoDeFecha(*momento) : std::string(guardado);
  sqlite3_result_text(contexto, texto.data(), static_cast<int>(texto.size()), SQLITE_TRANSIENT);
}

void Exigir(sqlite3* base, int codigo) {
  if (codigo != SQLITE_OK) Lanzar(base);
}

}  // namespace

void RegistrarFunciones(sqlite3* base) {
  constexpr int modo = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  Exigir(base, sqlite3_create_collation(base, "ES", SQLITE_UTF8, nullptr, Comparar));
  Exigir(base, sqlite3_create_function(base, "like", 2, modo, nullptr, Like, nullptr, nullptr));
  Exigir(base, sqlite3_create_function(base, "texto_fecha", 1, modo, nullptr, TextoFecha, nullptr,
                                       nullptr));
}

}  // namespace sqlite
