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

/// A row of what is read of a table, into the list of what becomes of it.
void Anadir(Reposicion& reposicion, const Tabla& tabla, const services::Filas& leidas,
            std::size_t i) {
  const auto importe = [&](std::size_t columna) {
    const services::Valor& valor = leidas.En(i, columna);
    return valor.EsNulo() ? "" : ImporteDicho(valor);
  };
  Fila fila = sql::LeerFila(leidas, i);
  fila.Importe = EnLosDos(importe(6), importe(7));
  if (leidas.En(i, 8).Texto() != "1") return reposicion.SeVan.push_back(std::move(fila));
  if (leidas.En(i, 9).Texto() != "1") return reposicion.Vuelven.push_back(std::move(fila));
  if (tabla.Que == Tabla::Cosa::Vencimiento) {
    const std::string pagado = PagadoDicho(leidas.En(i, 10));
    const std::string pagadoAhora = PagadoDicho(leidas.En(i, 11));
    if (pagado != pagadoAhora) fila.Motivo = "pagado " + EnLosDos(pagado, pagadoAhora);
  }
  reposicion.Cambian.push_back(std::move(fila));
}

std::string NombreDeClave(std::size_t i) {
  return "Clave" + std::to_string(i);
}

/// The rows of a query, and beside each what tells it from the others, in columns of their own: the
/// engine makes an index of those.
std::string ConClave(const Tabla& tabla, const std::string& filas) {
  std::vector<std::string> clave = sql::Clave(tabla, "f");
  for (std::size_t i = 0; i < clave.size(); ++i) clave[i] += " AS " + NombreDeClave(i);
  return Juntar({"SELECT f.*, ", sql::Separar(clave, ", "), " FROM (", filas, ") f"});
}

std::string PorClave(const Tabla& tabla) {
  std::vector<std::string> nombres;
  for (std::size_t i = 0; i < tabla.Clave().size(); ++i) nombres.push_back(NombreDeClave(i));
  return Juntar({" USING (", sql::Separar(nombres, ", "), ")"});
}

/// What is read of a row of the copy, `a`, and the stored one, `b`: the `Fila` of one of them, what
/// both amount to, whether they are there, and what was paid of them.
std::string Leer(const Tabla& tabla, std::string_view alias) {
  const bool pagado = tabla.Que == Tabla::Cosa::Vencimiento;
  return Juntar({"SELECT ", sql::ComoFila(tabla, alias, "''"), ", a.", tabla.Importe, ", b.",
                 tabla.Importe, ", a.Clave0 IS NOT NULL, b.Clave0 IS NOT NULL",
                 pagado ? ", a.Pagado, b.Pagado" : ""});
}

/// The rows of the copy that aren't stored, or say something else there; then the stored ones that
/// it hasn't. Of the cash entries those alone that both have.
std::string Distintas(sqlite::Conexion& base, const Tabla& tabla) {
  const std::vector<std::string> comunes = Comunes(base, tabla.Nombre);
  const std::string por = PorClave(tabla);
  const bool apuntes = tabla.Que == Tabla::Cosa::Apunte;
  std::string consulta = Juntar(
      {"WITH a AS MATERIALIZED (", ConClave(tabla, Juntar({"SELECT * FROM copia.", tabla.Nombre})),
       "), b AS MATERIALIZED (", ConClave(tabla, Ahora(tabla)), ") ", Leer(tabla, "a"), " FROM a ",
       apuntes ? "JOIN b" : "LEFT JOIN b", por, " WHERE b.Clave0 IS NULL OR (",
       Dice(tabla, comunes, "a"), ") IS NOT (", Dice(tabla, comunes, "b"), ")"});
  if (apuntes) return consulta;
  return Juntar({consulta, " UNION ALL ", Leer(tabla, "b"), " FROM b LEFT JOIN a", por,
                 " WHERE a.Clave0 IS NULL"});
}

void Comparar(sqlite::Conexion& base, const Tabla& tabla, Reposicion& reposicion) {
  const services::Filas leidas = base.Consultar(Distintas(base, tabla)).Filas;
  for (std::size_t i = 0; i < leidas.Cuantas(); ++i) Anadir(reposicion, tabla, leidas, i);
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
                       "t.Factura AS Suya, t.Tipo, t.Año AS SuAnio"),
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
