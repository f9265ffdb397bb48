#include "salvaguarda/foto.h"

#include <gmock/gmock.h>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/cerrojos.h"
#include "salvaguarda/adjunta.h"

namespace {

using testing::IsEmpty;
using testing::Not;

TEST(FotoDeCarga, SeAbreSinSoltarLosCerrojosDeQuienLaTiene) {
  const pruebas::CarpetaTemporal carpeta;
  const std::string almacenados = carpeta.Fichero("datos.db");
  const std::string fichero = carpeta.Fichero("trabajo.foto");
  const auto base = sqlite::AbrirConexion(almacenados, {.Crear = true});
  esquema::CrearAlmacenadas(*base);
  const salvaguarda::Foto primera(almacenados, fichero);

  const salvaguarda::sql::Adjunta foto(*base, fichero, "foto");
  const salvaguarda::sql::Transaccion lectura(*base);
  base->Ejecutar("SELECT count(*) FROM foto.sqlite_schema");
  const auto antes = pruebas::CerrojosDe(fichero);
  ASSERT_THAT(antes, Not(IsEmpty()));
  const salvaguarda::Foto segunda(almacenados, fichero);
  EXPECT_EQ(pruebas::CerrojosDe(fichero), antes);
}

}  // namespace
