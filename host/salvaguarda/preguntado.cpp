#include "salvaguarda/preguntado.h"

#include <string>

#include "salvaguarda/cambios.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {

// A file without a name, which is the connection's own and goes with it.
Preguntado::Preguntado(sqlite::Conexion& base) : base_(base), adjunta_(base, "", "preguntado") {
  std::string todo;
  for (const Tabla& tabla : Tablas()) {
    todo += sql::Juntar(
        {"CREATE TABLE preguntado.", tabla.Nombre, " AS SELECT * FROM copia.", tabla.Nombre, ";"});
  }
  sql::Transaccion transaccion(base_);
  base_.Ejecutar(todo);
  transaccion.Terminar();
}

std::vector<Cambio> Preguntado::Cambios() {
  return LeerCambios(base_, "preguntado");
}

}  // namespace salvaguarda
