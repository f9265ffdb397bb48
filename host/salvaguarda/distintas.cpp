#include "salvaguarda/distintas.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

bool DicenLoMismo(sqlite::Conexion& base, const Tabla& tabla, std::string_view antes) {
  const std::vector<std::string> columnas = sql::Contenido(base, tabla);
  const auto hay = base.Consultar(
      Juntar({"SELECT (SELECT count(*) FROM copia.", tabla.Nombre, ") = (SELECT count(*) FROM ",
              antes, ".", tabla.Nombre, ") AND NOT EXISTS (SELECT 1 FROM copia.", tabla.Nombre,
              " a LEFT JOIN ", antes, ".", tabla.Nombre, " b ON b.rowid = a.rowid WHERE (",
              sql::Valores(tabla, columnas, "a"), ") IS NOT (", sql::Valores(tabla, columnas, "b"),
              "))"}));
  return hay.Filas.En(0, 0).Numero() != 0;
}

/// Their keys have an order in which case doesn't count.
constexpr const char* kDistintas =
    "DROP TABLE IF EXISTS temp.Distintas; CREATE TEMP TABLE Distintas (Tabla, NConcepto COLLATE "
    "ES, Factura COLLATE ES, Año COLLATE ES, Detalle, EnLaCopia, Importe, Pagado, ModificadoPor, "
    "Actualizado); CREATE INDEX temp.DistintasPorClave ON Distintas (NConcepto, Factura, Año);";

/// The rows of a table of one of both, as they are compared.
std::string Comparables(sqlite::Conexion& base, const Tabla& tabla, std::string_view de) {
  return Juntar({"SELECT ", sql::ValoresConNombre(tabla, sql::Contenido(base, tabla), "t"),
                 " FROM ", de, ".", tabla.Nombre, " t"});
}

/// Puts there those of a table that `una` has and `otra` hasn't. Each is found again by its key as
/// it is compared, of which the engine then makes an index.
std::string Anadir(sqlite::Conexion& base, const Tabla& tabla, std::string_view una,
                   std::string_view otra) {
  std::vector<std::string> claves;
  std::vector<std::string> misma;
  for (const std::string_view clave : tabla.Clave()) {
    const std::string suya = "Clave" + std::to_string(claves.size());
    claves.push_back(sql::Valores(tabla, {std::string(clave)}, "u") + " AS " + suya);
    misma.push_back(Juntar({"t.", suya, " = d.", clave}));
  }
  const bool pagado = tabla.Que == Tabla::Cosa::Vencimiento;
  const std::string conClave =
      Juntar({"WITH t AS MATERIALIZED (SELECT u.*, ", sql::Separar(claves, ", "), " FROM ", una,
              ".", tabla.Nombre, " u) "});
  const std::string soloSuyas =
      Comparables(base, tabla, una) + " EXCEPT " + Comparables(base, tabla, otra);
  return Juntar({"INSERT INTO temp.Distintas ", conClave, "SELECT ",
                 sql::ColumnasDeFila(tabla, "t"), una == "copia" ? ", 1" : ", 0", ", t.",
                 tabla.Importe, pagado ? ", t.Pagado" : ", NULL",
                 ", t.ModificadoPor, t.Actualizado FROM (", soloSuyas, ") d JOIN t ON ",
                 sql::Separar(misma, " AND "), ";"});
}

}  // namespace

bool DicenLoMismo(sqlite::Conexion& base, std::string_view antes) {
  return std::ranges::all_of(Tablas(),
                             [&](const Tabla& tabla) { return DicenLoMismo(base, tabla, antes); });
}

void ReunirDistintas(sqlite::Conexion& base, std::string_view antes) {
  std::string todo = kDistintas;
  for (const Tabla& tabla : Tablas()) {
    todo += Anadir(base, tabla, antes, "copia") + Anadir(base, tabla, "copia", antes);
  }
  base.Ejecutar(todo);
}

}  // namespace salvaguarda
