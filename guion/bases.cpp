#include "guion/bases.h"

#include <filesystem>

#include "esquema/esquema_sqlite.h"
#include "guion/base_odbc.h"
#include "guion/texto_guion.h"
#include "salvaguarda/conexion_con_guardia.h"

namespace guion {

Bases::Bases(const Ficheros& ficheros, int sesion)
    : fichero_datos_(ficheros.Datos()),
      fichero_local_(ficheros.Local(sesion)),
      local_(std::make_unique<BaseSqlite>(
          fichero_local_,
          sqlite::Opciones{
              .Durabilidad = sqlite::Sincronizacion::Normal, .Crear = true, .Exclusiva = true},
          "TempProvFacturas",
          [](sqlite::Conexion& conexion) { esquema::CrearDeTrabajo(conexion); })) {
  if (const auto* esquema = ficheros.Esquema()) {
    datos_ = std::make_unique<BaseOdbc>(*esquema);
    return;
  }
  auto sqlite = std::make_unique<BaseSqlite>(
      fichero_datos_, sqlite::Opciones{.Crear = true}, "ProvFacturas",
      [](sqlite::Conexion& conexion) { esquema::CrearAlmacenadas(conexion); });
  datosSqlite_ = sqlite.get();
  datos_ = std::move(sqlite);
}

Guardada Bases::Guardar(const std::string& usuario, const salvaguarda::Trato& trato) const {
  if (!datosSqlite_) throw NoSeEntiende("las tablas de un servidor no tienen guardia");
  const std::filesystem::path carpeta = std::filesystem::path(fichero_local_).parent_path();
  auto guardia = std::make_shared<salvaguarda::Guardia>(
      salvaguarda::Guardia::Bases{datosSqlite_->Motor(), local_->Motor(), fichero_datos_,
                                  salvaguarda::FicheroDeFoto(fichero_local_)},
      salvaguarda::Guardia::Lugares{carpeta / "copias", carpeta / "registro.txt"}, usuario, trato);
  services::Ref<services::Conexion> guardados =
      services::Crear<salvaguarda::ConexionGuardada>(datosSqlite_->Motor(), guardia);
  return {std::move(guardia), std::move(guardados)};
}

}  // namespace guion
