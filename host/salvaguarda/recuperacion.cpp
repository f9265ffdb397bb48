#include "salvaguarda/recuperacion.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/dicho.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

/// That the entry `e` belongs to no invoice now, or to one that the copy is about: one that another
/// has linked since to his own stays there.
constexpr std::string_view kDeLaCopia =
    "(e.Suya IS NULL OR e.Suya = '' OR EXISTS (SELECT 1 FROM temp.DeLaCopia c WHERE c.NConcepto = "
    "CAST(e.Tipo AS TEXT) AND c.Factura = trim(e.Suya) AND c.Año = e.SuAnio))";

/// The keys that the attached copy is about, where they are soon found.
void PrepararClaves(sqlite::Conexion& base) {
  base.Ejecutar("DROP TABLE IF EXISTS temp.DeLaCopia;" + sql::CrearClaves("temp", "DeLaCopia") +
                "INSERT OR IGNORE INTO temp.DeLaCopia SELECT * FROM copia.Claves");
}

/// The columns that the copy and the store both have of a table: either may have got or lost one.
std::vector<std::string> Comunes(sqlite::Conexion& base, std::string_view tabla) {
  const auto suyas = base.Consultar(Juntar({"SELECT * FROM copia.", tabla, " LIMIT 0"})).Columnas;
  std::vector<std::string> comunes;
  for (const services::Columna& columna : base.ColumnasDe(tabla)) {
    const auto suya = std::ranges::find(suyas, columna.Nombre, &services::Columna::Nombre);
    if (suya != suyas.end()) comunes.push_back(columna.Nombre);
  }
  return comunes;
}

/// Those of them that tell what a row says.
std::string Dice(const Tabla& tabla, const std::vector<std::string>& comunes,
                 std::string_view alias) {
  std::vector<std::string> columnas;
  std::ranges::copy_if(comunes, std::back_inserter(columnas),
                       [&](const std::string& nombre) { return tabla.EsContenido(nombre); });
  return sql::Valores(tabla, columnas, alias);
}

/// The stored rows that the copy is about, as a query.
std::string Ahora(const Tabla& tabla) {
  if (tabla.Que == Tabla::Cosa::Prevision) return sql::PrevisionesCon("copia.ClavesPrevision");
  if (tabla.Que != Tabla::Cosa::Apunte) return sql::FilasDe(tabla, "copia.Claves");
  return Juntar({"SELECT e.* FROM (",
                 sql::ApuntesCon("copia.CajaPagos", "t.*, t.Factura AS Suya, t.Año AS SuAnio"),
                 ") e WHERE ", kDeLaCopia});
}

/// What is in the copy, and what is stored: "121,00, ahora 100,00"; one of them where that is all.
std::string EnLosDos(const std::string& enLaCopia, const std::string& ahora) {
  if (enLaCopia.empty() || enLaCopia == ahora) return ahora;
  return ahora.empty() ? enLaCopia : enLaCopia + ", ahora " + ahora;
}

/// The rows of a query of four amounts after those of a `Fila`: its own one in the copy and in the
/// store, and what was paid.
void Anadir(std::vector<Fila>& filas, const services::Filas& leidas) {
  const auto importe = [](const services::Valor& valor) {
    return valor.EsNulo() ? "" : ImporteDicho(valor);
  };
  for (std::size_t i = 0; i < leidas.Cuantas(); ++i) {
    Fila fila = sql::LeerFila(leidas, i);
    fila.Importe = EnLosDos(importe(leidas.En(i, 6)), importe(leidas.En(i, 7)));
    const std::string pagado = PagadoDicho(leidas.En(i, 8));
    const std::string pagadoAhora = PagadoDicho(leidas.En(i, 9));
    if (pagado != pagadoAhora) fila.Motivo = "pagado " + EnLosDos(pagado, pagadoAhora);
    filas.push_back(std::move(fila));
  }
}

/// The amounts of the rows of the copy and of the store; what was paid where both are there.
std::string Importes(const Tabla& tabla, bool cambian) {
  const bool pagado = cambian && tabla.Que == Tabla::Cosa::Vencimiento;
  return Juntar({"a.", tabla.Importe, ", b.", tabla.Importe,
                 pagado ? ", a.Pagado, b.Pagado" : ", NULL, NULL"});
}

/// The rows `a` of the copy beside the stored ones, `b`.
void Comparar(sqlite::Conexion& base, const Tabla& tabla, Reposicion& reposicion) {
  const auto filas = [&](std::string_view alias, const std::string& desde, bool cambian = false) {
    return base
        .Consultar(Juntar({"WITH a AS MATERIALIZED (SELECT * FROM copia.", tabla.Nombre,
                           "), b AS MATERIALIZED (", Ahora(tabla), ") SELECT ",
                           sql::ComoFila(tabla, alias, "''"), ", ", Importes(tabla, cambian),
                           " FROM ", desde}))
        .Filas;
  };
  const std::string con = " ON " + sql::MismaFila(tabla, "a", "b");
  if (tabla.Que != Tabla::Cosa::Apunte) {
    const std::string falta = Juntar({".", tabla.Concepto, " IS NULL"});
    Anadir(reposicion.Vuelven, filas("a", "a LEFT JOIN b" + con + " WHERE b" + falta));
    Anadir(reposicion.SeVan, filas("b", "b LEFT JOIN a" + con + " WHERE a" + falta));
  }
  const std::vector<std::string> comunes = Comunes(base, tabla.Nombre);
  Anadir(reposicion.Cambian, filas("a",
                                   "a JOIN b" + con + " WHERE (" + Dice(tabla, comunes, "a") +
                                       ") IS NOT (" + Dice(tabla, comunes, "b") + ")",
                                   true));
}

/// The rows of a table under the copy's keys make way for the copy's.
std::string Sustituir(sqlite::Conexion& base, std::string_view tabla, const std::string& suyas) {
  std::vector<std::string> comunes = Comunes(base, tabla);
  for (std::string& nombre : comunes) nombre = sql::Columna("", nombre);
  const std::string columnas = sql::Separar(comunes, ", ");
  return Juntar({"DELETE FROM main.", tabla, " WHERE rowid IN (", suyas, "); INSERT INTO main.",
                 tabla, " (", columnas, ") SELECT ", columnas, " FROM copia.", tabla, ";"});
}

/// First found, by their moment, then written one by one.
std::string EnlazarApuntes() {
  return Juntar(
      {"DROP TABLE IF EXISTS temp.Enlaces; CREATE TABLE temp.Enlaces (Fila INTEGER PRIMARY KEY, "
       "Factura, Año, Actualizado, ModificadoPor); INSERT OR IGNORE INTO temp.Enlaces SELECT "
       "e.Fila, e.Factura, e.Año, e.Actualizado, e.ModificadoPor FROM (",
       sql::ApuntesCon("copia.CajaPagos",
                       "t.rowid AS Fila, k.Factura, k.Año, k.Actualizado, k.ModificadoPor, "
                       "t.Importe, t.Factura AS Suya, t.Tipo, t.Año AS SuAnio"),
       ") e WHERE ", kDeLaCopia,
       "; UPDATE main.CajaPagos SET (Factura, Año, Actualizado, ModificadoPor) = (SELECT "
       "e.Factura, e.Año, e.Actualizado, e.ModificadoPor FROM temp.Enlaces e WHERE e.Fila = "
       "CajaPagos.rowid) "
       "WHERE rowid IN (SELECT Fila FROM temp.Enlaces);"});
}

/// A unit of the driver's own, which sees to it that the file is still the one that was opened.
class UnidadDeReposicion {
 public:
  explicit UnidadDeReposicion(sqlite::Conexion& almacenados) : almacenados_(almacenados) {
    almacenados_.EmpezarUnidad();
  }
  ~UnidadDeReposicion() { almacenados_.AbandonarUnidad(); }
  UnidadDeReposicion(const UnidadDeReposicion&) = delete;
  UnidadDeReposicion& operator=(const UnidadDeReposicion&) = delete;
  void Terminar() { almacenados_.TerminarUnidad(); }

 private:
  sqlite::Conexion& almacenados_;
};

}  // namespace

Reposicion Comparar(sqlite::Conexion& base, const Copia& copia) {
  const sql::Adjunta adjunta(base, copia.Fichero.string(), "copia");
  PrepararClaves(base);
  Reposicion reposicion;
  for (const Tabla& tabla : Tablas()) Comparar(base, tabla, reposicion);
  return reposicion;
}

void Reponer(sqlite::Conexion& almacenados, sqlite::Conexion& lectura, const Copia& copia,
             Copias& copias, services::FechaHora momento, const std::string& usuario) {
  almacenados.TerminarUnidad();
  const sql::Adjunta adjunta(almacenados, copia.Fichero.string(), "copia");
  UnidadDeReposicion unidad(almacenados);
  {
    const sql::Adjunta vieja(lectura, copia.Fichero.string(), "vieja");
    CopiaEnCurso(copias, lectura, CopiaDeCopia("vieja"), {momento, usuario, {}}).Terminar();
  }
  PrepararClaves(almacenados);
  std::string todo;
  for (const Tabla& tabla : TablasDeFactura()) {
    todo += Sustituir(almacenados, tabla.Nombre, sql::FilasDe(tabla, "copia.Claves", "t.rowid"));
  }
  todo += Sustituir(almacenados, "ProvPrevisionPagos",
                    sql::PrevisionesCon("copia.ClavesPrevision", "t.rowid"));
  almacenados.Ejecutar(todo + EnlazarApuntes());
  unidad.Terminar();
}

}  // namespace salvaguarda
