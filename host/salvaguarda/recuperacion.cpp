#include "salvaguarda/recuperacion.h"

#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/copia_adjunta.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

/// The rows of a table under the copy's keys make way for the copy's.
std::string Sustituir(sqlite::Conexion& base, std::string_view tabla, const std::string& suyas) {
  std::vector<std::string> comunes = sql::Comunes(base, tabla);
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
       ") e WHERE ", sql::kDeLaCopia,
       "; UPDATE main.CajaPagos SET (Factura, Año, Actualizado, ModificadoPor) = (SELECT "
       "e.Factura, e.Año, e.Actualizado, e.ModificadoPor FROM temp.Enlaces e WHERE e.Fila = "
       "CajaPagos.rowid) "
       "WHERE rowid IN (SELECT Fila FROM temp.Enlaces);"});
}

/// A unit of the driver's own, which sees to it that the file is still the one that was opened.
class UnidadDeReposicion {
 public:
  explicit UnidadDeReposicion(Almacen& almacen) : conexion_(almacen.Conexion()) {
    almacen.EmpezarUnidad();
  }
  ~UnidadDeReposicion() { conexion_->AbandonarUnidad(); }
  UnidadDeReposicion(const UnidadDeReposicion&) = delete;
  UnidadDeReposicion& operator=(const UnidadDeReposicion&) = delete;
  void Terminar() { conexion_->TerminarUnidad(); }

 private:
  services::Ref<services::Conexion> conexion_;
};

}  // namespace

void Reponer(Almacen& almacen, sqlite::Conexion& lectura, const Copia& copia, Copias& copias,
             services::FechaHora momento, const std::string& usuario) {
  almacen.Conexion()->TerminarUnidad();
  sqlite::Conexion& base = almacen.Base();
  const std::string fichero = copia.Fichero.string();
  const sql::Adjunta adjunta(base, fichero, "copia");
  UnidadDeReposicion unidad(almacen);
  almacen.Traer({}, [&] { return Claves::DeCopia(lectura, fichero); });
  CopiaEnCurso deAntes = [&] {
    const sql::Adjunta vieja(lectura, fichero, "vieja");
    return CopiaEnCurso(copias, lectura, CopiaDeCopia("vieja"), {momento, usuario, {}});
  }();
  sql::PrepararClaves(base);
  std::string todo;
  for (const Tabla& tabla : TablasDeFactura()) {
    todo += Sustituir(base, tabla.Nombre, sql::FilasDe(tabla, "copia.Claves", "t.rowid"));
  }
  todo += Sustituir(base, "ProvPrevisionPagos",
                    sql::PrevisionesCon("copia.ClavesPrevision", "t.rowid"));
  almacen.Cambiar(todo + EnlazarApuntes());
  // Copied before it is durable; what the stored tables have refused by now leaves no copy behind.
  deAntes.Terminar();
  unidad.Terminar();
}

}  // namespace salvaguarda
