#include "valores/modo_reanudar.h"

#include <gmock/gmock.h>

#include <vector>

using services::ErrorEjecucion;
using services::ModoReanudar;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ModoReanudarTest : public testing::Test {
 protected:
  ModoReanudar modo_{[this](const ErrorEjecucion& fallo) {
    dicho_.push_back(std::to_string(fallo.Numero()) + " " + fallo.Descripcion());
  }};
  std::vector<std::string> dicho_;
};

TEST_F(ModoReanudarTest, ApagadoDejaSalirElError) {
  EXPECT_THROW(modo_.Paso([] { throw ErrorEjecucion(13, "no coinciden los tipos"); }),
               ErrorEjecucion);
  EXPECT_THAT(dicho_, IsEmpty());
}

TEST_F(ModoReanudarTest, ActivoDiceNumeroYDescripcionYSigue) {
  modo_.Activar();
  EXPECT_FALSE(modo_.Paso([] { throw ErrorEjecucion(13, "no coinciden los tipos"); }));
  bool seguido = false;
  EXPECT_TRUE(modo_.Paso([&] { seguido = true; }));
  EXPECT_TRUE(seguido);
  EXPECT_FALSE(modo_.Paso([] { throw ErrorEjecucion(6, "desbordamiento"); }));
  EXPECT_THAT(dicho_, ElementsAre("13 no coinciden los tipos", "6 desbordamiento"));
}

TEST_F(ModoReanudarTest, DesactivadoVuelveADejarSalirElError) {
  modo_.Activar();
  modo_.Desactivar();
  EXPECT_THROW(modo_.Paso([] { throw ErrorEjecucion(13, ""); }), ErrorEjecucion);
  EXPECT_THAT(dicho_, IsEmpty());
}

}  // namespace
