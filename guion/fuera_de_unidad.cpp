#include "guion/fuera_de_unidad.h"

#include "guion/salida.h"
#include "guion/texto_guion.h"
#include "valores/error.h"

namespace guion {

void FueraDeUnidad(services::Conexion& conexion, const std::function<void()>& accion) {
  conexion.TerminarUnidad();
  try {
    accion();
  } catch (const services::ErrorEjecucion& fallo) {
    throw NoSeEntiende(fallo.Descripcion());
  }
  conexion.TerminarUnidad();
}

std::vector<Base::Fila> EnTextos(const services::Filas& filas) {
  std::vector<Base::Fila> textos;
  for (std::size_t f = 0; f < filas.Cuantas(); ++f) {
    Base::Fila& fila = textos.emplace_back();
    for (std::size_t c = 0; c < filas.Columnas(); ++c) fila.push_back(TextoPlano(filas.En(f, c)));
  }
  return textos;
}

}  // namespace guion
