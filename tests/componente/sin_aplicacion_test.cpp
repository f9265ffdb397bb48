#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <functional>
#include <future>

#include "abrir_pagos.h"
#include "apoyo/errores.h"
#include "apoyo/form_de_prueba.h"
#include "esquema/esquema_sqlite.h"
#include "platform/automation/carpeta_de_datos.h"
#include "qt/plataforma_qt.h"
#include "services/utiles.h"

// The library in a host that can have no windows: a failure, and the host goes on.

namespace {

using apoyo::DescripcionDeError;
using apoyo::NumeroDeError;

constexpr const char* kSinAplicacion =
    "El anfitrión no ha creado la aplicación de las ventanas (QApplication)";

class SinAplicacion : public testing::Test {
 protected:
  SinAplicacion() {
    esquema::CrearAlmacenadas(*empresa);
    esquema::CrearDeTrabajo(*trabajo);
    trabajo->Ejecutar("INSERT INTO TempTesvara (Concepto) VALUES ('de antes')");
    contexto->Empresa = Ref<services::Conexion>(empresa);
    contexto->Trabajo = Ref<services::Conexion>(trabajo);
    contexto->Ventana = Ref<services::IForm>(services::Crear<apoyo::FormDePrueba<>>());
  }
  void Abrir() { (void)AbrirPagos(BIBLIOTECA_TESVARA, contexto); }

  pruebas::CarpetaDeDatos datos;
  Ref<sqlite::Conexion> empresa =
      sqlite::AbrirConexion((datos.Ruta() / "empresa").string(), {.Crear = true});
  Ref<sqlite::Conexion> trabajo =
      sqlite::AbrirConexion((datos.Ruta() / "trabajo").string(), {.Crear = true});
  Ref<Contexto> contexto = services::Crear<Contexto>();
};

TEST_F(SinAplicacion, CargarFallaYElAnfitrionSigue) {
  for (int vez = 1; vez <= 2; ++vez) {
    EXPECT_EQ(DescripcionDeError([&] { Abrir(); }), kSinAplicacion);
    EXPECT_EQ(NumeroDeError([&] { Abrir(); }), services::hr::Codigo(0x800A005B));
  }
  EXPECT_EQ(trabajo->Consultar("SELECT Concepto FROM TempTesvara").Filas.Cuantas(), 1U);
}

TEST_F(SinAplicacion, UnaAplicacionSinVentanasTampocoBasta) {
  int cuantos = 1;
  char programa[] = "prueba";
  char* argumentos[] = {programa, nullptr};
  const QCoreApplication aplicacion(cuantos, argumentos);
  EXPECT_EQ(DescripcionDeError([&] { Abrir(); }), kSinAplicacion);
}

/// What of the platform needs windows.
std::vector<std::function<void()>> LoQueNecesitaVentanas(const services::Plataforma& plataforma) {
  return {[&] { (void)plataforma.CrearAviso(); }, [&] { (void)plataforma.Pantalla(); },
          [&] { (void)plataforma.Printers(); }};
}

TEST(PlataformaSinAplicacion, LoDiceEnVezDeAcabarConElProceso) {
  const services::Plataforma plataforma = qt::CrearPlataforma();
  for (const auto& pedir : LoQueNecesitaVentanas(plataforma)) {
    EXPECT_EQ(DescripcionDeError(pedir), kSinAplicacion);
  }
  testing::internal::CaptureStderr();
  plataforma.ErrorNoControlado(services::ErrorEjecucion(13, "No coinciden los tipos"));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Nº Error: 13: No coinciden los tipos\n");
}

TEST(PlataformaSinAplicacion, EnOtroHiloQueElDeLasVentanasTambien) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int cuantos = 1;
  char programa[] = "prueba";
  char* argumentos[] = {programa, nullptr};
  const QApplication aplicacion(cuantos, argumentos);
  const services::Plataforma plataforma = qt::CrearPlataforma();
  for (const auto& pedir : LoQueNecesitaVentanas(plataforma)) {
    EXPECT_EQ(DescripcionDeError(pedir), "");
    const auto enOtro = [&] { return DescripcionDeError(pedir); };
    EXPECT_EQ(std::async(std::launch::async, enOtro).get(),
              "Se ha llamado desde un hilo que no es el de las ventanas del anfitrión");
  }
}

}  // namespace
