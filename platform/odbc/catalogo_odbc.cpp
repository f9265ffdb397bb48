#include "odbc/catalogo_odbc.h"

#include <algorithm>
#include <cstdlib>

#include "odbc/consulta.h"

namespace odbc {

namespace {

// Places in what the driver manager tells of tables, columns and keys.
constexpr SQLUSMALLINT kNombreDeTabla = 3;
constexpr SQLUSMALLINT kNombreDeColumna = 4;
constexpr SQLUSMALLINT kTipo = 5;
constexpr SQLUSMALLINT kAncho = 7;
constexpr SQLUSMALLINT kAdmiteNulo = 11;

services::Columna ColumnaDicha(const FilaDeTextos& dicha) {
  auto columna = ColumnaDe(dicha[0], std::atoi(dicha[1].c_str()), std::atoi(dicha[2].c_str()));
  columna.AdmiteNulo = dicha[3] != std::to_string(SQL_NO_NULLS);
  return columna;
}

/// As the driver manager takes a name that may be missing.
SQLCHAR* OTodos(const std::string& nombre) {
  return nombre.empty() ? nullptr : Texto(nombre.c_str());
}

}  // namespace

void Catalogo::Olvidar() {
  tablas_.clear();
  nombres_.clear();
}

const dialecto::Tabla* Catalogo::Buscar(std::string_view nombre) {
  for (const auto& tabla : tablas_) {
    if (dialecto::MismoNombre(tabla->Nombre, nombre)) return tabla.get();
  }
  const std::string suyo = NombreDe(nombre);
  if (suyo.empty()) return nullptr;
  return tablas_.emplace_back(Leer(suyo)).get();
}

/// A table's own name; empty where there is none of that one. One that was made meanwhile is found.
std::string Catalogo::NombreDe(std::string_view nombre) {
  const auto buscar = [&] {
    return std::ranges::find_if(
        nombres_, [&](const std::string& uno) { return dialecto::MismoNombre(uno, nombre); });
  };
  auto hallado = buscar();
  if (hallado == nombres_.end()) {
    LeerNombres();
    hallado = buscar();
  }
  return hallado == nombres_.end() ? std::string() : *hallado;
}

void Catalogo::LeerNombres() {
  if (!enlace_.Motor().EsquemaActual.empty()) {
    const ManejoDeOrden orden = enlace_.NuevaOrden();
    enlace_.ContarViaje();
    enlace_.Comprobar(
        SQLExecDirect(orden.get(), Texto(std::string(enlace_.Motor().EsquemaActual).c_str()),
                      SQL_NTS),
        orden.Suyo);
    esquema_ = LeerTextos(enlace_, orden, {1}).at(0).at(0);
  }
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLTables(orden.get(), OTodos(enlace_.Catalogo()), SQL_NTS, OTodos(esquema_),
                              SQL_NTS, nullptr, 0, nullptr, 0),
                    orden.Suyo);
  nombres_.clear();
  for (FilaDeTextos& fila : LeerTextos(enlace_, orden, {kNombreDeTabla})) {
    nombres_.push_back(std::move(fila[0]));
  }
}

/// Its columns are those of a SELECT of all of them, in that order: a server may have others, which
/// it doesn't show.
std::unique_ptr<dialecto::Tabla> Catalogo::Leer(const std::string& nombre) {
  auto tabla = std::make_unique<dialecto::Tabla>();
  tabla->Nombre = nombre;
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLColumns(orden.get(), OTodos(enlace_.Catalogo()), SQL_NTS, OTodos(esquema_),
                               SQL_NTS, Texto(nombre.c_str()), SQL_NTS, nullptr, 0),
                    orden.Suyo);
  std::vector<services::Columna> dichas;
  for (const FilaDeTextos& fila :
       LeerTextos(enlace_, orden, {kNombreDeTabla, kNombreDeColumna, kTipo, kAncho, kAdmiteNulo})) {
    if (fila[0] != nombre) continue;
    dichas.push_back(ColumnaDicha({fila.begin() + 1, fila.end()}));
  }
  for (const std::string& columna : NombresDeColumnas(nombre)) {
    const auto dicha = std::ranges::find(dichas, columna, &services::Columna::Nombre);
    if (dicha != dichas.end()) tabla->Columnas.push_back(*dicha);
  }
  LeerClave(*tabla);
  LeerRecortadas(*tabla);
  return tabla;
}

std::vector<std::string> Catalogo::NombresDeColumnas(const std::string& tabla) {
  const char comilla = enlace_.Motor().Dialecto.Comilla;
  const std::string sql = "SELECT * FROM " + (comilla + tabla) + comilla;
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLPrepare(orden.get(), Texto(sql.c_str()), SQL_NTS), orden.Suyo);
  std::vector<std::string> nombres;
  for (const auto& columna : Descritas(enlace_, orden)) nombres.push_back(columna.Nombre);
  return nombres;
}

/// Those that are made of another column as the engine trims it.
void Catalogo::LeerRecortadas(dialecto::Tabla& tabla) {
  if (enlace_.Motor().Calculadas.empty()) return;
  const dialecto::Motor& motor = enlace_.Motor().Dialecto;
  const std::string sql = std::string(enlace_.Motor().Calculadas) + "'" + tabla.Nombre + "'";
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLExecDirect(orden.get(), Texto(sql.c_str()), SQL_NTS), orden.Suyo);
  for (const FilaDeTextos& fila : LeerTextos(enlace_, orden, {1, 2})) {
    for (std::size_t i = 0; i < tabla.Columnas.size(); ++i) {
      std::string recorte(motor.Recorte.Antes);
      recorte += motor.Comilla + tabla.Columnas[i].Nombre + motor.Comilla;
      recorte += motor.Recorte.Despues;
      if (fila[1] == recorte) tabla.Recortadas.push_back({static_cast<int>(i), fila[0]});
    }
  }
}

void Catalogo::LeerClave(dialecto::Tabla& tabla) {
  const ManejoDeOrden orden = enlace_.NuevaOrden();
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLPrimaryKeys(orden.get(), OTodos(enlace_.Catalogo()), SQL_NTS,
                                   OTodos(esquema_), SQL_NTS, Texto(tabla.Nombre.c_str()), SQL_NTS),
                    orden.Suyo);
  for (const FilaDeTextos& fila : LeerTextos(enlace_, orden, {kNombreDeColumna})) {
    const int columna = dialecto::BuscarColumna(tabla, fila[0]);
    if (columna >= 0) tabla.Clave.push_back(columna);
  }
}

}  // namespace odbc
