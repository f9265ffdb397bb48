#include "guion/bases.h"

#include <filesystem>

#include "esquema/esquema_sqlite.h"
#include "salvaguarda/conexion_con_guardia.h"

namespace guion {

Bases::Bases(const Ficheros& ficheros, int sesion)
    : fichero_datos_(ficheros.Datos()),
      fichero_local_(ficheros.Local(sesion)),
      datos_(std::make_unique<BaseSqlite>(fichero_datos_, sqlite::Opciones{.Crear = true},
                                          "ProvFacturas", esquema::CrearAlmacenadas)),
      local_(std::make_unique<BaseSqlite>(
          fichero_local_,
          sqlite::Opciones{
              .Durabilidad = sqlite::Sincronizacion::Normal, .Crear = true, .Exclusiva = true},
          "TempProvFacturas", esquema::CrearDeTrabajo)) {}

Guardada Bases::Guardar(const std::string& usuario, const salvaguarda::Trato& trato) const {
  const std::filesystem::path carpeta = std::filesystem::path(fichero_local_).parent_path();
  auto guardia = std::make_shared<salvaguarda::Guardia>(
      salvaguarda::Guardia::Bases{datos_->Motor(), local_->Motor(), fichero_datos_,
                                  salvaguarda::FicheroDeFoto(fichero_local_)},
      salvaguarda::Guardia::Lugares{carpeta / "copias", carpeta / "registro.txt"}, usuario, trato);
  services::Ref<services::Conexion> guardados =
      services::Crear<salvaguarda::ConexionGuardada>(datos_->Motor(), guardia);
  return {std::move(guardia), std::move(guardados)};
}

}  // namespace guion
