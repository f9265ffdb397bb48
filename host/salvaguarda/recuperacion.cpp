#include "salvaguarda/recuperacion.h"

#include <algorithm>
#include <iterator>

#include "salvaguarda/ambito.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

/// A table of the copy beside the stored rows that it is about.
struct Pareja {
  std::string Tabla;
  /// The stored rows, as a query.
  std::string Ahora;
  /// That row `a` of the copy and row `b` of the store are the same one.
  std::string Misma;
  /// What tells one row from the others: the columns of a `Fila` from the second to the fifth, `@`
  /// for the row's name.
  std::string Clave;
  /// What they say, split by commas, alike.
  std::string Contenido;
};

std::string De(std::string_view alias, const std::string& texto) {
  std::string puesto;
  for (const char c : texto) puesto += c == '@' ? std::string(alias) : std::string(1, c);
  return puesto;
}

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

/// What those say.
std::string ContenidoComun(sqlite::Conexion& base, std::string_view tabla) {
  const std::vector<std::string> comunes = Comunes(base, tabla);
  return sql::Contenido(base, tabla, "@", [&](const std::string& nombre) {
    return std::ranges::find(comunes, nombre) != comunes.end();
  });
}

std::vector<Pareja> Parejas(sqlite::Conexion& base) {
  std::vector<Pareja> parejas;
  for (const auto& tabla : sql::kDeFactura) {
    const std::string detalle =
        tabla.Detalle.starts_with("'") ? "''" : Juntar({"@.", tabla.Detalle});
    const auto igual = [](std::string_view a, std::string_view b) {
      return Juntar({a, " COLLATE ES = ", b});
    };
    parejas.push_back(
        {std::string(tabla.Nombre), sql::FilasDe(tabla, "copia.Claves"),
         igual("a.NConcepto", "b.NConcepto") + " AND " +
             igual(Juntar({"trim(a.", tabla.Numero, ")"}), Juntar({"trim(b.", tabla.Numero, ")"})) +
             " AND " + igual("a.Año", "b.Año") + " AND " + De("a", detalle) + " = " +
             De("b", detalle),
         Juntar({"@.NConcepto, trim(@.", tabla.Numero, "), @.Año, ", detalle}),
         ContenidoComun(base, tabla.Nombre)});
  }
  parejas.push_back({"ProvPrevisionPagos", sql::PrevisionesCon("copia.ClavesPrevision"),
                     "a.NConcepto COLLATE ES = b.NConcepto", "@.NConcepto, '', '', @.Fecha1Vto",
                     ContenidoComun(base, "ProvPrevisionPagos")});
  parejas.push_back(
      {"CajaPagos",
       Juntar({"SELECT e.* FROM (",
               sql::ApuntesCon("copia.CajaPagos", "t.*, t.Factura AS Suya, t.Año AS SuAnio"),
               ") e WHERE ", kDeLaCopia}),
       "a.idSucursal = b.idSucursal AND MOMENTO(a.FechaHora) = MOMENTO(b.FechaHora) AND "
       "a.Tipo = b.Tipo",
       "@.Tipo, ifnull(@.Factura, ''), ifnull(@.Año, ''), @.FechaHora",
       "ifnull(@.Factura, ''), ifnull(@.Año, '')"});
  return parejas;
}

void Anadir(std::vector<Fila>& a, std::vector<Fila> otras) {
  a.insert(a.end(), std::make_move_iterator(otras.begin()), std::make_move_iterator(otras.end()));
}

void Comparar(sqlite::Conexion& base, const Pareja& pareja, Reposicion& reposicion) {
  const auto filas = [&](std::string_view alias, std::string_view desde) {
    return sql::LeerFilas(
        base, Juntar({"WITH a AS MATERIALIZED (SELECT * FROM copia.", pareja.Tabla,
                      "), b AS MATERIALIZED (", pareja.Ahora, ") SELECT '", pareja.Tabla, "', ",
                      De(alias, pareja.Clave), ", '' FROM ", desde}));
  };
  const std::string con = " ON " + pareja.Misma;
  if (pareja.Tabla != "CajaPagos") {
    Anadir(reposicion.Vuelven, filas("a", "a LEFT JOIN b" + con + " WHERE b.NConcepto IS NULL"));
    Anadir(reposicion.SeVan, filas("b", "b LEFT JOIN a" + con + " WHERE a.NConcepto IS NULL"));
  }
  Anadir(reposicion.Cambian, filas("a", "a JOIN b" + con + " WHERE (" + De("a", pareja.Contenido) +
                                            ") IS NOT (" + De("b", pareja.Contenido) + ")"));
}

/// The rows of a table under the copy's keys make way for the copy's.
std::string Sustituir(sqlite::Conexion& base, std::string_view tabla, const std::string& suyas) {
  std::string columnas;
  for (const std::string& nombre : Comunes(base, tabla)) {
    columnas += Juntar({columnas.empty() ? "\"" : ", \"", nombre, "\""});
  }
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
  for (const Pareja& pareja : Parejas(base)) Comparar(base, pareja, reposicion);
  return reposicion;
}

void Reponer(sqlite::Conexion& almacenados, sqlite::Conexion& lectura, const Copia& copia,
             Copias& copias, services::FechaHora momento, const std::string& usuario) {
  almacenados.TerminarUnidad();
  const sql::Adjunta adjunta(almacenados, copia.Fichero.string(), "copia");
  UnidadDeReposicion unidad(almacenados);
  {
    const sql::Adjunta vieja(lectura, copia.Fichero.string(), "vieja");
    copias.Guardar(lectura, CopiaDeCopia("vieja"), {momento, usuario, {}});
  }
  PrepararClaves(almacenados);
  std::string todo;
  for (const auto& tabla : sql::kDeFactura) {
    todo += Sustituir(almacenados, tabla.Nombre, sql::FilasDe(tabla, "copia.Claves", "t.rowid"));
  }
  todo += Sustituir(almacenados, "ProvPrevisionPagos",
                    sql::PrevisionesCon("copia.ClavesPrevision", "t.rowid"));
  almacenados.Ejecutar(todo + EnlazarApuntes());
  unidad.Terminar();
}

}  // namespace salvaguarda
