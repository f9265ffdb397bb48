#include "sqlite/funciones.h"

#include "sqlite/fichero.h"
#include "sqlite/momento.h"
#include "valores/texto.h"

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
  const std::string iso = services::TextoIso(*momento);
  sqlite3_result_text(contexto, iso.data(), static_cast<int>(iso.size()), SQLITE_TRANSIENT);
}

std::string_view Primera(std::string_view texto) {
  return texto.substr(0, services::Izquierda(texto, 1).size());
}

/// Whether the first sign of the pattern, which is no `%`, stands for the first of the text.
bool Casa(std::string_view patron, std::string_view texto) {
  if (patron.empty() || texto.empty()) return false;
  return patron.front() == '_' || services::MismoTexto(Primera(patron), Primera(texto));
}

bool SeParece(std::string_view texto, std::string_view patron) {
  // What is tried anew when the rest doesn't match: the pattern behind the last `%`, one character
  // further on.
  std::optional<std::string_view> trasComodin;
  std::string_view reintento;
  while (!texto.empty() || !patron.empty()) {
    if (!patron.empty() && patron.front() == '%') {
      patron.remove_prefix(1);
      trasComodin = patron;
      reintento = texto;
    } else if (Casa(patron, texto)) {
      patron.remove_prefix(Primera(patron).size());
      texto.remove_prefix(Primera(texto).size());
    } else if (trasComodin && !reintento.empty()) {
      reintento.remove_prefix(Primera(reintento).size());
      patron = *trasComodin;
      texto = reintento;
    } else {
      return false;
    }
  }
  return true;
}

void Like(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
  const bool alguno = sqlite3_value_type(argumentos[0]) == SQLITE_NULL ||
                      sqlite3_value_type(argumentos[1]) == SQLITE_NULL;
  if (alguno) return sqlite3_result_null(contexto);
  sqlite3_result_int(contexto, SeParece(Texto(argumentos[1]), Texto(argumentos[0])) ? 1 : 0);
}

using Funcion = void (*)(sqlite3_context*, int, sqlite3_value**);

void Registrar(sqlite3* base, const char* nombre, int argumentos, Funcion funcion) {
  Exigir(base, sqlite3_create_function_v2(base, nombre, argumentos, kPura, nullptr, funcion,
                                          nullptr, nullptr, nullptr));
}

}  // namespace

void RegistrarFunciones(sqlite3* base) {
  Registrar(base, "MOMENTO", 1, Momento);
  Registrar(base, "like", 2, Like);
}

}  // namespace sqlite
