#include "print/vista.h"

#include <gtest/gtest.h>

using namespace print;

namespace {

constexpr vista::Medida kA4{11906, 16838};

TEST(Vista, CadaPorcentajeDaSuAlto) {
  EXPECT_EQ(vista::AltoEnPantalla("100 %", kA4, 10000), 16838);
  EXPECT_EQ(vista::AltoEnPantalla("50 %", kA4, 10000), 8419);
  EXPECT_EQ(vista::AltoEnPantalla("Encajar en Pantalla", kA4, 10000), 10000);
  EXPECT_EQ(vista::AltoEnPantalla("Encajar en pantalla", kA4, 10000), 0) << "otro texto no es nada";
  EXPECT_EQ(vista::AltoEnPantalla("", kA4, 10000), 0);
}

TEST(Vista, LaHojaGuardaSuProporcion) {
  EXPECT_EQ(vista::AnchoEnPantalla(kA4, 16838), 11906);
  EXPECT_EQ(vista::AnchoEnPantalla(kA4, 8419), 5953);
  EXPECT_EQ(vista::AnchoEnPantalla({1000, 2000}, 3000), 1500);
}

TEST(Vista, UnPasoEsLaDecimaParteDeLaVista) {
  EXPECT_EQ(vista::Pasos(20000, 10000), 10);
  EXPECT_EQ(vista::Pasos(20999, 10000), 10);
  EXPECT_EQ(vista::Pasos(10999, 10000), 0);
  EXPECT_EQ(vista::Pasos(10000, 10000), 0);
  EXPECT_EQ(vista::Pasos(8500, 10000), -1) << "hacia cero";
  EXPECT_EQ(vista::Pasos(10000, 0), 0);
}

TEST(Vista, ElUltimoPasoDejaElFinalAlFinal) {
  constexpr int kVista = 10005;
  const int alto = 34000;
  const int pasos = vista::Pasos(alto, kVista);
  ASSERT_EQ(pasos, 23);
  EXPECT_EQ(vista::Desplazado(0, pasos, alto, kVista), 0);
  EXPECT_EQ(vista::Desplazado(1, pasos, alto, kVista), 1000) << "en enteros";
  EXPECT_EQ(vista::Desplazado(3, pasos, alto, kVista), 3001);
  EXPECT_EQ(vista::Desplazado(pasos, pasos, alto, kVista), alto - kVista);
}

TEST(Vista, CincoMilPaginasNoDesbordan) {
  constexpr int kVista = 16000;
  const int alto = 5000 * 16938;
  const int pasos = vista::Pasos(alto, kVista);
  EXPECT_EQ(vista::Desplazado(pasos - 1, pasos, alto, kVista), kVista / 10 * (pasos - 1));
}

}  // namespace
