#include "datos/conexion.h"

namespace services {

std::vector<Columna> Conexion::ColumnasDe(std::string_view tabla) {
  const std::string nombre(tabla);
  return Abrir("SELECT " + nombre + ".* FROM " + nombre, ModoApertura::Lectura)->Columnas();
}

}  // namespace services
