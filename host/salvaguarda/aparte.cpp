#include "salvaguarda/aparte.h"

#include <set>
#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/rescate.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"
#include "valores/error.h"

namespace salvaguarda {

using sql::Juntar;

namespace {

std::set<std::string> Columnas(sqlite::Conexion& base, const std::string& tabla) {
  std::set<std::string> nombres;
  for (const auto& columna : base.Consultar("SELECT * FROM " + tabla + " LIMIT 0").Columnas) {
    nombres.insert(columna.Nombre);
  }
  return nombres;
}

/// A working table takes the rows that the copy has of it, column by column.
std::string Traer(sqlite::Conexion& deTrabajo, const Tabla& tabla) {
  const std::string suya = Juntar({"main.Temp", tabla.Nombre});
  const std::string laOtra = Juntar({"aparte.Temp", tabla.Nombre});
  const std::set<std::string> columnas = Columnas(deTrabajo, suya);
  if (columnas != Columnas(deTrabajo, laOtra)) {
    throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                   "es de otra versión del programa");
  }
  std::vector<std::string> nombres;
  nombres.reserve(columnas.size());
  for (const std::string& columna : columnas) nombres.push_back(sql::Columna("", columna));
  const std::string todas = sql::Separar(nombres, ", ");
  return Juntar({"DELETE FROM ", suya, "; INSERT INTO ", suya, " (", todas, ") SELECT ", todas,
                 " FROM ", laOtra, ";"});
}

}  // namespace

bool HayCopia(sqlite::Conexion& aparte) {
  return aparte.TieneTabla(kCopiaAbierta);
}

void TraerCopia(sqlite::Conexion& deTrabajo, const std::string& fichero) {
  deTrabajo.TerminarUnidad();
  const sql::Adjunta aparte(deTrabajo, fichero, "aparte");
  sql::Transaccion transaccion(deTrabajo);
  std::string todo = Juntar({"DROP TABLE IF EXISTS main.", kCopiaAbierta, "; CREATE TABLE main.",
                             kCopiaAbierta, " AS SELECT * FROM aparte.", kCopiaAbierta, ";"});
  for (const Tabla& tabla : Tablas()) todo += Traer(deTrabajo, tabla);
  deTrabajo.Ejecutar(todo);
  transaccion.Terminar();
}

}  // namespace salvaguarda
