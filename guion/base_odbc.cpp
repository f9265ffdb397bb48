#include "guion/base_odbc.h"

#include "guion/fuera_de_unidad.h"

namespace guion {

BaseOdbc::BaseOdbc(const esquema::EsquemaPropio& esquema)
    : conexion_(odbc::AbrirConexion(esquema.Conexion(), {.Esquema = esquema.Nombre()})) {
  if (!conexion_->TieneTabla("ProvFacturas")) esquema::CrearAlmacenadas(*conexion_);
  conexion_->AlEmpezarUnidad(esquema::kTurno);
}

void BaseOdbc::Ejecutar(const std::string& sql) {
  FueraDeUnidad(*conexion_, [&] { conexion_->Ejecutar(sql); });
}

std::vector<Base::Fila> BaseOdbc::Consultar(const std::string& sql) {
  std::vector<Fila> filas;
  FueraDeUnidad(*conexion_, [&] { filas = EnTextos(conexion_->Consultar(sql).Filas); });
  return filas;
}

}  // namespace guion
