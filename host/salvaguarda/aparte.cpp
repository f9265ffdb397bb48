#include "salvaguarda/aparte.h"

#include "salvaguarda/adjunta.h"
#include "salvaguarda/rescate.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {

using sql::Juntar;

bool HayCopia(sqlite::Conexion& aparte) {
  return aparte.TieneTabla(kCopiaAbierta);
}

void TraerCopia(sqlite::Conexion& deTrabajo, const std::string& fichero) {
  deTrabajo.TerminarUnidad();
  const sql::Adjunta aparte(deTrabajo, fichero, "aparte");
  sql::Transaccion transaccion(deTrabajo);
  std::string todo = Juntar({"DROP TABLE IF EXISTS main.", kCopiaAbierta, "; CREATE TABLE main.",
                             kCopiaAbierta, " AS SELECT * FROM aparte.", kCopiaAbierta, ";"});
  for (const Tabla& tabla : Tablas()) {
    todo += Juntar({"DELETE FROM main.Temp", tabla.Nombre, "; INSERT INTO main.Temp", tabla.Nombre,
                    " SELECT * FROM aparte.Temp", tabla.Nombre, ";"});
  }
  deTrabajo.Ejecutar(todo);
  transaccion.Terminar();
}

}  // namespace salvaguarda
