#include "valores/modo_reanudar.h"

#include <gtest/gtest.h>

using services::ErrorEjecucion;
using services::ModoReanudar;

namespace {

TEST(ModoReanudar, ApagadoDejaSalirElError) {
  ModoReanudar modo;
  EXPECT_THROW(modo.Paso([] { throw ErrorEjecucion(13, "no coinciden los tipos"); }),
               ErrorEjecucion);
  EXPECT_EQ(modo.Numero(), 0);
}

TEST(ModoReanudar, ActivoGuardaNumeroYDescripcionYSigue) {
  ModoReanudar modo;
  modo.Activar();
  modo.Paso([] { throw ErrorEjecucion(13, "no coinciden los tipos"); });
  bool seguido = false;
  modo.Paso([&] { seguido = true; });
  EXPECT_TRUE(seguido);
  EXPECT_EQ(modo.Numero(), 13);
  EXPECT_EQ(modo.Descripcion(), "no coinciden los tipos");
  modo.Limpiar();
  EXPECT_EQ(modo.Numero(), 0);
}

TEST(ModoReanudar, DesactivadoVuelveADejarSalirElError) {
  ModoReanudar modo;
  modo.Activar();
  modo.Desactivar();
  EXPECT_THROW(modo.Paso([] { throw ErrorEjecucion(13, ""); }), ErrorEjecucion);
}

}  // namespace
