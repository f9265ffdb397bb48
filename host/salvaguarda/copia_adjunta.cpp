#include "salvaguarda/copia_adjunta.h"

#include <algorithm>

#include "salvaguarda/sql.h"

namespace salvaguarda::sql {

void PrepararClaves(sqlite::Conexion& base) {
  base.Ejecutar(
      "DROP TABLE IF EXISTS temp.DeLaCopia; CREATE TEMP TABLE DeLaCopia (Factura COLLATE ES, Tipo "
      "INTEGER COLLATE ES, Año COLLATE ES, PRIMARY KEY (Factura, Tipo, Año)) WITHOUT ROWID;"
      "INSERT OR IGNORE INTO temp.DeLaCopia SELECT Factura, NConcepto, Año FROM copia.Claves");
}

std::vector<std::string> Comunes(sqlite::Conexion& base, std::string_view tabla) {
  const auto suyas = base.Consultar(Juntar({"SELECT * FROM copia.", tabla, " LIMIT 0"})).Columnas;
  std::vector<std::string> comunes;
  for (const services::Columna& columna : base.ColumnasDe(tabla)) {
    const auto suya = std::ranges::find(suyas, columna.Nombre, &services::Columna::Nombre);
    if (suya != suyas.end()) comunes.push_back(columna.Nombre);
  }
  return comunes;
}

}  // namespace salvaguarda::sql
