#include "sqlite/numeros.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <unordered_set>
#include <vector>

#include "sqlite/fichero.h"

namespace sqlite {

namespace {

using Numero = sqlite3_int64;

/// What one run of the aggregate has gathered.
struct Reunion {
  std::vector<Numero> numeros;
  std::unordered_set<Numero> vistos;
};

/// What the engine keeps for the run under way, in memory of its own, all zeros at first.
struct Guardada {
  Reunion* reunion;
};

/// Null when the engine has no room for it. With no bytes asked for, also where there is none yet.
Guardada* LaGuardada(sqlite3_context* contexto, int bytes) {
  return static_cast<Guardada*>(sqlite3_aggregate_context(contexto, bytes));
}

void Reunir(sqlite3_context* contexto, int, sqlite3_value** argumentos) try {
  Guardada* guardada = LaGuardada(contexto, sizeof(Guardada));
  if (!guardada) return sqlite3_result_error_nomem(contexto);
  if (!guardada->reunion) guardada->reunion = new Reunion;
  Reunion& reunion = *guardada->reunion;
  if (sqlite3_value_type(argumentos[0]) != SQLITE_INTEGER) {
    return sqlite3_result_error(contexto, "no es el número de una fila", -1);
  }
  const Numero numero = sqlite3_value_int64(argumentos[0]);
  if (reunion.vistos.insert(numero).second) reunion.numeros.push_back(numero);
} catch (const std::exception&) {
  sqlite3_result_error_nomem(contexto);
}

void Numerar(sqlite3_context* contexto) {
  const Guardada* guardada = LaGuardada(contexto, 0);
  const std::unique_ptr<Reunion> reunion(guardada ? guardada->reunion : nullptr);
  if (!reunion) return sqlite3_result_zeroblob(contexto, 0);
  sqlite3_result_blob64(contexto, reunion->numeros.data(), reunion->numeros.size() * sizeof(Numero),
                        SQLITE_TRANSIENT);
}

struct Numerado {
  Numero numero;
  std::size_t orden;
};

std::vector<Numerado> Numerados(sqlite3_value* valor) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(valor));
  std::vector<Numerado> numerados(static_cast<std::size_t>(sqlite3_value_bytes(valor)) /
                                  sizeof(Numero));
  for (std::size_t i = 0; i < numerados.size(); ++i) {
    std::memcpy(&numerados[i].numero, bytes + i * sizeof(Numero), sizeof(Numero));
    numerados[i].orden = i;
  }
  return numerados;
}

/// The tables have no rows of their own: all there is to them is their columns.
struct Tabla : sqlite3_vtab {
  bool enOrden;
};

struct Recorrido : sqlite3_vtab_cursor {
  std::vector<Numerado> filas;
  std::size_t fila = 0;
};

enum Columna : std::uint8_t { kNumero, kOrden, kValor };

Recorrido& El(sqlite3_vtab_cursor* cursor) {
  return *static_cast<Recorrido*>(cursor);
}

int Conectar(sqlite3* base, void* enOrden, int, const char* const*, sqlite3_vtab** tabla, char**) {
  const int codigo = sqlite3_declare_vtab(base, "CREATE TABLE x (numero, orden, valor HIDDEN)");
  if (codigo != SQLITE_OK) return codigo;
  *tabla = new (std::nothrow) Tabla{{}, enOrden != nullptr};
  return *tabla ? SQLITE_OK : SQLITE_NOMEM;
}

int Desconectar(sqlite3_vtab* tabla) {
  delete static_cast<Tabla*>(tabla);
  return SQLITE_OK;
}

/// It can't be gone through without the value that it is a table of.
int Planear(sqlite3_vtab*, sqlite3_index_info* plan) {
  for (int i = 0; i < plan->nConstraint; ++i) {
    const auto& condicion = plan->aConstraint[i];
    if (condicion.iColumn != kValor || condicion.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (!condicion.usable) return SQLITE_CONSTRAINT;
    plan->aConstraintUsage[i].argvIndex = 1;
    plan->aConstraintUsage[i].omit = 1;
    plan->estimatedCost = 1;
    return SQLITE_OK;
  }
  return SQLITE_CONSTRAINT;
}

int Abrir(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
  *cursor = new (std::nothrow) Recorrido();
  return *cursor ? SQLITE_OK : SQLITE_NOMEM;
}

int Cerrar(sqlite3_vtab_cursor* cursor) {
  delete static_cast<Recorrido*>(cursor);
  return SQLITE_OK;
}

int Empezar(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value** argumentos) try {
  Recorrido& recorrido = El(cursor);
  recorrido.fila = 0;
  recorrido.filas = Numerados(argumentos[0]);
  if (static_cast<const Tabla*>(cursor->pVtab)->enOrden) {
    std::ranges::sort(recorrido.filas, {}, &Numerado::numero);
  }
  return SQLITE_OK;
} catch (const std::exception&) {
  return SQLITE_NOMEM;
}

int Siguiente(sqlite3_vtab_cursor* cursor) {
  ++El(cursor).fila;
  return SQLITE_OK;
}

int AlFinal(sqlite3_vtab_cursor* cursor) {
  return El(cursor).fila >= El(cursor).filas.size() ? 1 : 0;
}

int LeerColumna(sqlite3_vtab_cursor* cursor, sqlite3_context* contexto, int columna) {
  const Numerado& numerado = El(cursor).filas[El(cursor).fila];
  if (columna == kNumero) sqlite3_result_int64(contexto, numerado.numero);
  if (columna == kOrden) sqlite3_result_int64(contexto, static_cast<Numero>(numerado.orden));
  return SQLITE_OK;
}

int LeerFila(sqlite3_vtab_cursor* cursor, sqlite3_int64* fila) {
  *fila = static_cast<Numero>(El(cursor).fila);
  return SQLITE_OK;
}

constexpr sqlite3_module kModulo = [] {
  sqlite3_module modulo{};
  modulo.xConnect = Conectar;
  modulo.xDisconnect = Desconectar;
  modulo.xBestIndex = Planear;
  modulo.xOpen = Abrir;
  modulo.xClose = Cerrar;
  modulo.xFilter = Empezar;
  modulo.xNext = Siguiente;
  modulo.xEof = AlFinal;
  modulo.xColumn = LeerColumna;
  modulo.xRowid = LeerFila;
  return modulo;
}();

}  // namespace

void RegistrarNumeros(sqlite3* base) {
  static bool enOrden = true;  // the engine hands it on as it came
  Exigir(base, sqlite3_create_function_v2(base, "numerar", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                          nullptr, nullptr, Reunir, Numerar, nullptr));
  Exigir(base, sqlite3_create_module_v2(base, "numeros de filas", &kModulo, nullptr, nullptr));
  Exigir(base,
         sqlite3_create_module_v2(base, "numeros de filas en orden", &kModulo, &enOrden, nullptr));
}

}  // namespace sqlite
