#include "guion/bases.h"

#include "esquema/esquema_sqlite.h"
#include "guion/base_sqlite.h"

namespace guion {

Bases::Bases(const Ficheros& ficheros, int sesion)
    : datos_(std::make_unique<BaseSqlite>(ficheros.Datos(), sqlite::Opciones{.Crear = true},
                                          "ProvFacturas", esquema::CrearAlmacenadas)),
      local_(std::make_unique<BaseSqlite>(
          ficheros.Local(sesion),
          sqlite::Opciones{
              .Durabilidad = sqlite::Sincronizacion::Normal, .Crear = true, .Exclusiva = true},
          "TempProvFacturas", esquema::CrearDeTrabajo)) {}

}  // namespace guion
