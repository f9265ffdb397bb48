#include "entry/fechas.h"

#include <gtest/gtest.h>

#include <string>

#include "apoyo/errores.h"
#include "valores/error.h"

namespace {

using entry::FechaMas;
using entry::UnidadDePropuesta;

struct Paso {
  const char* Desde;
  const char* Unidad;
  double Cuantos;
  const char* Hasta;
};

class FechaMasTest : public testing::TestWithParam<Paso> {};

TEST_P(FechaMasTest, DaLaFechaSiguiente) {
  const Paso& paso = GetParam();
  EXPECT_EQ(FechaMas(paso.Desde, paso.Unidad, paso.Cuantos), paso.Hasta);
}

INSTANTIATE_TEST_SUITE_P(Casos, FechaMasTest,
                         testing::Values(Paso{"15/03/2005", "d", 30, "14/04/2005"},
                                         Paso{"31/01/2005", "d", 30, "02/03/2005"},
                                         Paso{"15/03/2005", "m", 1, "15/04/2005"},
                                         Paso{"31/01/2005", "m", 1, "28/02/2005"},
                                         Paso{"31/01/2004", "m", 1, "29/02/2004"},
                                         Paso{"29/02/2004", "yyyy", 1, "28/02/2005"},
                                         Paso{"15/03/2005", "yyyy", 30, "15/03/2035"},
                                         Paso{"15/03/2005", "m", 1.9, "15/04/2005"},
                                         Paso{"15/03/2005", "m", -1.9, "15/02/2005"},
                                         Paso{"15/03/2005", "d", 0, "15/03/2005"}));

TEST(FechaMas, LoQueNoEsFechaEsErrorDeTipos) {
  for (const char* texto : {"", "99/99/2005", "hoy"}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { (void)FechaMas(texto, "d", 1); }),
              services::error::TiposNoCoinciden)
        << texto;
  }
}

TEST(FechaMas, MasAllaDelCalendarioEsUnaLlamadaNoValida) {
  for (const double cuantos : {1.0, 1e9, 1e30, -1e30}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { (void)FechaMas("31/12/9999", "yyyy", cuantos); }),
              services::error::LlamadaNoValida)
        << cuantos;
  }
}

TEST(UnidadDePropuesta, LosDiasConAcentoCuentanComoAnios) {
  EXPECT_EQ(UnidadDePropuesta("Días"), "yyyy");
  EXPECT_EQ(UnidadDePropuesta("Meses"), "m");
  EXPECT_EQ(UnidadDePropuesta("Años"), "yyyy");
  EXPECT_EQ(UnidadDePropuesta("Dias"), "d");
}

}  // namespace
