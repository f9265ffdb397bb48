#include "guion/bases.h"

#include "esquema/esquema_sqlite.h"
#include "guion/base_sqlite.h"

namespace guion {

Bases::Bases(const Opciones& opciones) {
  const bool conservar = opciones.Mantener;
  datos_ = std::make_unique<BaseSqlite>(Fichero(opciones.Datos, "datos.sqlite", conservar),
                                        sqlite::Opciones{.Crear = true}, "ProvFacturas",
                                        esquema::CrearAlmacenadas);
  local_ = std::make_unique<BaseSqlite>(
      Fichero(opciones.Local, "local.sqlite", conservar),
      sqlite::Opciones{
          .Durabilidad = sqlite::Sincronizacion::Normal, .Crear = true, .Exclusiva = true},
      "TempProvFacturas", esquema::CrearDeTrabajo);
}

std::string Bases::Fichero(const std::string& dado, const char* nombre, bool conservar) {
  if (!dado.empty()) return dado;
  if (!carpeta_) carpeta_.emplace(conservar);
  return carpeta_->Ruta() / nombre;
}

}  // namespace guion
