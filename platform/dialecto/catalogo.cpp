#include "dialecto/catalogo.h"

#include "valores/error.h"
#include "valores/texto.h"

namespace dialecto {

const Tabla& Catalogo::Exigir(std::string_view nombre) {
  if (const Tabla* tabla = Buscar(nombre)) return *tabla;
  throw services::ErrorEjecucion(services::error::TablaDesconocida,
                                 "No existe la tabla «" + std::string(nombre) + "»");
}

bool MismoNombre(std::string_view a, std::string_view b) {
  return a == b || services::MismoTexto(a, b);
}

int BuscarColumna(const Tabla& tabla, std::string_view nombre) {
  const auto cuantas = static_cast<int>(tabla.Columnas.size());
  for (int i = 0; i < cuantas; ++i) {
    if (tabla.Columnas[static_cast<std::size_t>(i)].Nombre == nombre) return i;
  }
  for (int i = 0; i < cuantas; ++i) {
    if (services::MismoTexto(tabla.Columnas[static_cast<std::size_t>(i)].Nombre, nombre)) return i;
  }
  return -1;
}

}  // namespace dialecto
