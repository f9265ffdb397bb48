#include <gmock/gmock.h>

#include <QAction>

#include "anfitrion/ventana_principal.h"
#include "platform/carpeta_temporal.h"
#include "platform/cerrojos.h"
#include "platform/qt/dialogo_a_la_vista.h"

// The file dialog of the suite, on the folder where its own files are open.

namespace {

using testing::Each;
using testing::IsEmpty;
using testing::Not;

anfitrion::Opciones En(const pruebas::CarpetaTemporal& carpeta) {
  anfitrion::Opciones opciones;
  opciones.Carpeta = QString::fromStdString(carpeta.Camino());
  return opciones;
}

class AbrirAparte : public testing::Test {
 protected:
  AbrirAparte() {
    datos.DeTrabajo->CopiarEn(carpeta.Fichero("trabajo-aparte.sqlite"));
    ventana.show();
  }
  /// What the dialog showed of the one that is kept aside.
  std::optional<std::string> Ver() {
    return pruebas::VerDialogo("trabajo-aparte.sqlite", [this] {
      for (QAction* accion : ventana.findChildren<QAction*>()) {
        if (accion->text() == "&Abrir una copia guardada aparte...") accion->trigger();
      }
    });
  }

  pruebas::CarpetaTemporal carpeta;
  anfitrion::Opciones opciones = En(carpeta);
  anfitrion::Datos datos = anfitrion::AbrirDatos(opciones);
  anfitrion::VentanaPrincipal ventana{opciones, datos};
};

TEST_F(AbrirAparte, NoSueltaLosCerrojosDeLoQueEstaAbierto) {
  for (const char* lectura : {"SELECT 1", "BEGIN; SELECT count(*) FROM ProvFacturas"}) {
    datos.Almacenados->Base().Ejecutar(lectura);
    const auto almacenados = pruebas::CerrojosDeBase(datos.Almacenados->Nombre());
    const auto deTrabajo = pruebas::CerrojosDe(datos.NombreDeTrabajo);
    ASSERT_THAT(almacenados, Each(Not(IsEmpty())));
    ASSERT_THAT(deTrabajo, Not(IsEmpty()));
    EXPECT_EQ(Ver(), "Fichero sqlite");
    EXPECT_EQ(Ver(), "Fichero sqlite");
    EXPECT_EQ(pruebas::CerrojosDeBase(datos.Almacenados->Nombre()), almacenados);
    EXPECT_EQ(pruebas::CerrojosDe(datos.NombreDeTrabajo), deTrabajo);
  }
}

}  // namespace
