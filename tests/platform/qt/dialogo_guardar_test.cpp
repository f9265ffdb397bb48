#include "qt/dialogo_guardar.h"

#include <gmock/gmock.h>

#include <QDir>
#include <filesystem>
#include <fstream>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/cerrojos.h"
#include "platform/qt/dialogo_a_la_vista.h"
#include "sqlite/conexion_sqlite.h"

// A report saved into the folder where the database files are.

namespace {

using pruebas::CerrojosDeBase;
using testing::Each;
using testing::IsEmpty;
using testing::Not;

TEST(DialogoGuardar, NoSueltaLosCerrojosDeLosFicherosDeSuCarpeta) {
  const pruebas::CarpetaTemporal carpeta;
  const std::string fichero = carpeta.Fichero("empresa.sqlite");
  const std::string suyo = carpeta.Fichero("trabajo.sqlite");
  const auto almacenados = sqlite::AbrirConexion(fichero, {.Crear = true});
  esquema::CrearAlmacenadas(*almacenados);
  const auto deTrabajo = sqlite::AbrirConexion(suyo, {.Crear = true, .Exclusiva = true});
  esquema::CrearDeTrabajo(*deTrabajo);
  const QString informe = QString::fromStdString(carpeta.Fichero("hay.pdf"));
  std::ofstream(informe.toStdString()) << "antes";
  std::filesystem::create_directory(carpeta.Fichero("copias"));

  for (const char* lectura : {"SELECT 1", "BEGIN; SELECT count(*) FROM ProvFacturas"}) {
    almacenados->Ejecutar(lectura);
    const auto antes = CerrojosDeBase(fichero);
    const auto deTrabajoAntes = pruebas::CerrojosDe(suyo);
    ASSERT_THAT(antes, Each(Not(IsEmpty())));
    ASSERT_THAT(deTrabajoAntes, Not(IsEmpty()));
    const auto ver = [&](const QString& nombre) {
      return pruebas::VerDialogo(nombre, [&] { (void)qt::PedirFicheroPdf(informe); });
    };
    EXPECT_EQ(ver("hay.pdf"), "Fichero pdf");
    EXPECT_EQ(ver("copias"), "Carpeta");
    EXPECT_EQ(CerrojosDeBase(fichero), antes);
    EXPECT_EQ(pruebas::CerrojosDe(suyo), deTrabajoAntes);
  }
}

}  // namespace
