#include "datos/filas.h"

#include <gtest/gtest.h>

namespace {

using services::Filas;
using services::Valor;

TEST(Filas, DevuelvenCadaClaseDeValor) {
  const std::vector<Valor> valores = {
      {}, true, 7, 1.25, services::HacerFecha(2005, 3, 5, 9, 5, 0), "ñandú", ""};
  Filas filas(valores.size());
  for (int i = 0; i < 2; ++i) {
    for (const auto& valor : valores) filas.Anadir(valor);
  }
  ASSERT_EQ(filas.Cuantas(), 2U);
  for (std::size_t i = 0; i < valores.size(); ++i) EXPECT_EQ(filas.En(1, i), valores[i]) << i;
}

TEST(Filas, UnEnteroMayorDe32BitsEsUnDouble) {
  Filas filas(1);
  filas.AnadirEntero(std::int64_t{1} << 40);
  EXPECT_EQ(filas.En(0, 0), Valor(1099511627776.0));
  EXPECT_EQ(filas.Entero(0, 0), std::int64_t{1} << 40);
}

TEST(Filas, CopianCeldasDeOtras) {
  Filas unas(2);
  unas.AnadirTexto("uno");
  unas.AnadirEntero(1);
  Filas otras(2);
  otras.AnadirTexto("delante");
  otras.AnadirCelda(unas, 0, 0);
  EXPECT_EQ(otras.En(0, 1), Valor("uno"));
}

TEST(Filas, SinColumnasNoHayFilas) {
  EXPECT_EQ(Filas().Cuantas(), 0U);
}

}  // namespace
