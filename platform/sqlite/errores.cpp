#include "sqlite/fichero.h"
#include "valores/error.h"

namespace sqlite {

namespace {

struct Explicacion {
  std::int32_t numero;
  std::string_view frase;
};

constexpr Explicacion DeSentencia(std::string_view texto) {
  using namespace services::error;
  if (texto.starts_with("no such table")) return {TablaDesconocida, "No existe la tabla"};
  if (texto.starts_with("no such column") || texto.find("has no column") != texto.npos) {
    return {ColumnaDesconocida, "No existe la columna"};
  }
  return {SentenciaRechazada, "La base de datos no entiende la sentencia"};
}

constexpr Explicacion DeRestriccion(int codigo) {
  using services::error::RepetidoONoCabe;
  switch (codigo) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {RepetidoONoCabe, "Ya existe una fila con la misma clave"};
    case SQLITE_CONSTRAINT_NOTNULL:
      return {RepetidoONoCabe, "Falta un valor que la tabla exige"};
    default:
      return {RepetidoONoCabe, "La tabla no admite el valor"};
  }
}

constexpr std::string_view DeConexion(int primario) {
  switch (primario) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "La base de datos está bloqueada por otro programa";
    case SQLITE_READONLY:
      return "La base de datos es de solo lectura";
    case SQLITE_CANTOPEN:
      return "No se puede abrir el fichero de la base de datos";
    case SQLITE_NOTADB:
      return "El fichero no es una base de datos";
    case SQLITE_CORRUPT:
      return "El fichero de la base de datos está dañado";
    case SQLITE_FULL:
      return "No queda sitio en el disco para la base de datos";
    case SQLITE_IOERR:
      return "Falla la lectura o la escritura del fichero de la base de datos";
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return "No hay permiso para usar la base de datos";
    case SQLITE_NOMEM:
      return "No queda memoria";
    default:
      return "Falla la base de datos";
  }
}

constexpr Explicacion Explicar(int codigo, std::string_view texto) {
  if (codigo == SQLITE_READONLY_DBMOVED) {
    return {
        services::error::FalloDeConexion,
        "Alguien ha borrado el fichero de la base de datos o lo ha sustituido por otro, y no se "
        "ha guardado nada"};
  }
  const int primario = codigo & 0xFF;
  if (primario == SQLITE_ERROR) return DeSentencia(texto);
  if (primario == SQLITE_CONSTRAINT) return DeRestriccion(codigo);
  if (primario == SQLITE_MISMATCH || primario == SQLITE_TOOBIG || primario == SQLITE_RANGE) {
    return {services::error::RepetidoONoCabe, "El valor no cabe en su columna"};
  }
  return {services::error::FalloDeConexion, DeConexion(primario)};
}

/// The files that a connection has attached. The engine doesn't tell which of them failed.
std::string Ficheros(sqlite3* base) {
  std::string todos;
  for (int i = 0; const char* nombre = sqlite3_db_name(base, i); ++i) {
    const char* fichero = sqlite3_db_filename(base, nombre);
    if (fichero == nullptr || *fichero == '\0') continue;
    todos.append(todos.empty() ? "" : ", o ").append(fichero);
  }
  return todos;
}

}  // namespace

void Lanzar(int codigo, std::string_view texto, std::string_view fichero) {
  const Explicacion explicacion = Explicar(codigo, texto);
  const std::string cual = "SQLite " + std::to_string(codigo);
  std::string descripcion(explicacion.frase);
  if (explicacion.numero == services::error::FalloDeConexion) {
    // The user has more than one file, and the engine's own words add nothing to ours.
    descripcion.append(": ").append(fichero).append(" (").append(cual).append(")");
  } else {
    descripcion.append(" (").append(cual).append(": ").append(texto).append(")");
  }
  throw services::ErrorEjecucion(explicacion.numero, descripcion);
}

void Lanzar(sqlite3* base) {
  Lanzar(base, sqlite3_extended_errcode(base), sqlite3_errmsg(base));
}

void Lanzar(sqlite3* base, int codigo, std::string_view texto) {
  Lanzar(codigo, texto, Ficheros(base));
}

}  // namespace sqlite
