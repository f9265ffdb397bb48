#include "guion/base_sqlite.h"

#include "guion/salida.h"
#include "guion/texto_guion.h"
#include "valores/error.h"

namespace guion {

BaseSqlite::BaseSqlite(const std::string& fichero, const sqlite::Opciones& opciones,
                       std::string_view una, const std::function<void(sqlite::Conexion&)>& crear)
    : conexion_(sqlite::AbrirConexion(fichero, opciones)) {
  if (!conexion_->TieneTabla(una)) crear(*conexion_);
}

void BaseSqlite::FueraDeUnidad(const std::function<void()>& accion) {
  conexion_->TerminarUnidad();
  try {
    accion();
  } catch (const services::ErrorEjecucion& fallo) {
    throw NoSeEntiende(fallo.Descripcion());
  }
  conexion_->TerminarUnidad();
}

void BaseSqlite::Ejecutar(const std::string& sql) {
  FueraDeUnidad([&] { conexion_->Ejecutar(sql); });
}

std::vector<Base::Fila> BaseSqlite::Consultar(const std::string& sql) {
  std::vector<Fila> filas;
  FueraDeUnidad([&] {
    const sqlite::Resultado resultado = conexion_->Consultar(sql);
    const std::size_t columnas = resultado.Columnas.size();
    for (std::size_t f = 0; f < resultado.Filas.Cuantas(); ++f) {
      Fila& fila = filas.emplace_back();
      for (std::size_t c = 0; c < columnas; ++c) {
        fila.push_back(TextoPlano(resultado.Filas.En(f, c)));
      }
    }
  });
  return filas;
}

}  // namespace guion
