#include "guion/base_sqlite.h"

#include "guion/fuera_de_unidad.h"

namespace guion {

BaseSqlite::BaseSqlite(const std::string& fichero, const sqlite::Opciones& opciones,
                       std::string_view una, const std::function<void(sqlite::Conexion&)>& crear)
    : conexion_(sqlite::AbrirConexion(fichero, opciones)) {
  if (!conexion_->TieneTabla(una)) crear(*conexion_);
}

void BaseSqlite::Ejecutar(const std::string& sql) {
  FueraDeUnidad(*conexion_, [&] { conexion_->Ejecutar(sql); });
}

std::vector<Base::Fila> BaseSqlite::Consultar(const std::string& sql) {
  std::vector<Fila> filas;
  FueraDeUnidad(*conexion_, [&] { filas = EnTextos(conexion_->Consultar(sql).Filas); });
  return filas;
}

}  // namespace guion
