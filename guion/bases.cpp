#include "guion/bases.h"

#include <filesystem>

#include "esquema/esquema_sqlite.h"
#include "guion/base_odbc.h"
#include "salvaguarda/almacen_en_servidor.h"
#include "salvaguarda/conexion_con_guardia.h"

namespace guion {

Bases::Bases(const Ficheros& ficheros, int sesion)
    : fichero_local_(ficheros.Local(sesion)),
      local_(std::make_unique<BaseSqlite>(
          fichero_local_,
          sqlite::Opciones{
              .Durabilidad = sqlite::Sincronizacion::Normal, .Crear = true, .Exclusiva = true},
          "TempProvFacturas",
          [](sqlite::Conexion& conexion) { esquema::CrearDeTrabajo(conexion); })) {
  if (const auto* esquema = ficheros.Esquema()) {
    AbrirEnServidor(*esquema);
  } else {
    AbrirEnFichero(ficheros.Datos());
  }
}

void Bases::AbrirEnFichero(const std::string& fichero) {
  auto sqlite = std::make_unique<BaseSqlite>(
      fichero, sqlite::Opciones{.Crear = true}, "ProvFacturas",
      [](sqlite::Conexion& conexion) { esquema::CrearAlmacenadas(conexion); });
  almacen_ = [fichero, conexion = sqlite->Motor()] {
    return std::make_shared<salvaguarda::AlmacenEnFichero>(conexion, fichero);
  };
  datos_ = std::move(sqlite);
}

void Bases::AbrirEnServidor(const esquema::EsquemaPropio& esquema) {
  auto servidor = std::make_unique<BaseOdbc>(esquema);
  const std::string espejo =
      std::filesystem::path(fichero_local_).replace_extension(".espejo").string();
  almacen_ = [nombre = esquema.Nombre(), conexion = servidor->Motor(), espejo] {
    return std::make_shared<salvaguarda::AlmacenEnServidor>(conexion, nombre, espejo);
  };
  datos_ = std::move(servidor);
}

Guardada Bases::Guardar(const std::string& usuario, const salvaguarda::Trato& trato) const {
  const std::filesystem::path carpeta = std::filesystem::path(fichero_local_).parent_path();
  auto guardia = std::make_shared<salvaguarda::Guardia>(
      salvaguarda::Guardia::Bases{almacen_(), local_->Motor(),
                                  salvaguarda::FicheroDeFoto(fichero_local_)},
      salvaguarda::Guardia::Lugares{carpeta / "copias", carpeta / "registro.txt"}, usuario, trato);
  services::Ref<services::Conexion> guardados =
      services::Crear<salvaguarda::ConexionGuardada>(datos_->Conexion(), guardia);
  return {std::move(guardia), std::move(guardados)};
}

}  // namespace guion
