#include "sqlite/funciones.h"

#include "sqlite/fichero.h"
#include "sqlite/momento.h"

namespace sqlite {

namespace {

constexpr int kPura = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

std::string_view Texto(sqlite3_value* valor) {
  const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valor));
  return {texto ? texto : "", static_cast<std::size_t>(sqlite3_value_bytes(valor))};
}

void Momento(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
  const bool esTexto = sqlite3_value_type(argumentos[0]) == SQLITE_TEXT;
  const auto momento = esTexto ? LeerMomento(Texto(argumentos[0])) : std::nullopt;
  if (!momento) return sqlite3_result_value(contexto, argumentos[0]);
  const std::string iso = Iso(*momento);
  sqlite3_result_text(contexto, iso.data(), static_cast<int>(iso.size()), SQLITE_TRANSIENT);
}

using Funcion = void (*)(sqlite3_context*, int, sqlite3_value**);

void Registrar(sqlite3* base, const char* nombre, int argumentos, Funcion funcion) {
  const int codigo = sqlite3_create_function_v2(base, nombre, argumentos, kPura, nullptr, funcion,
                                                nullptr, nullptr, nullptr);
  if (codigo != SQLITE_OK) Lanzar(base);
}

}  // namespace

void RegistrarFunciones(sqlite3* base) {
  Registrar(base, "MOMENTO", 1, Momento);
}

}  // namespace sqlite
