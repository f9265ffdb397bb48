#include "headless/informe_grabado.h"

#include <gtest/gtest.h>

using headless::InformeGrabado;
using headless::Trazo;
using headless::Trazos;

namespace {

class UnInforme : public testing::Test {
 protected:
  std::shared_ptr<Trazos> trazos = std::make_shared<Trazos>();
  InformeGrabado informe{trazos};
};

TEST_F(UnInforme, GuardaElTextoDondeYComoSeEscribe) {
  informe.Fuente("Times", 12, true);
  informe.ForeColor(255);
  informe.CurrentX(2.5);
  informe.CurrentY(3);
  informe.Print("Año", false);
  ASSERT_EQ(trazos->size(), 1U);
  const Trazo& t = trazos->front();
  EXPECT_EQ(t.Texto, "Año");
  EXPECT_EQ(t.Fuente, "Times");
  EXPECT_EQ(t.Puntos, 12);
  EXPECT_TRUE(t.Negrita);
  EXPECT_EQ(t.Color, 255);
  EXPECT_EQ(t.X1, 2.5);
  EXPECT_EQ(t.Y1, 3);
  EXPECT_DOUBLE_EQ(informe.CurrentX(), 2.5 + informe.TextWidth("Año"));
  EXPECT_EQ(informe.CurrentY(), 3);
}

TEST_F(UnInforme, TerminarLaLineaLlevaAlPrincipioDeLaSiguiente) {
  informe.CurrentX(2);
  informe.CurrentY(1);
  informe.Print("x", true);
  EXPECT_EQ(informe.CurrentX(), 0);
  EXPECT_DOUBLE_EQ(informe.CurrentY(), 1 + informe.TextHeight("x"));
  informe.Print("", true);
  EXPECT_EQ(trazos->size(), 1U);
}

TEST_F(UnInforme, ElAnchoCuentaLetrasYNoBytes) {
  EXPECT_DOUBLE_EQ(informe.TextWidth("ñññ"), informe.TextWidth("nnn"));
  EXPECT_GT(informe.TextWidth("nn"), informe.TextWidth("n"));
}

TEST_F(UnInforme, CadaTrazoSabeSuPagina) {
  informe.Linea(1, 2, 3, 4, 0);
  informe.NewPage();
  informe.Caja(1, 2, 3, 4, 7, true);
  informe.Imagen("logo.bmp", 5, 6);
  ASSERT_EQ(trazos->size(), 3U);
  EXPECT_EQ((*trazos)[0].Pagina, 1);
  EXPECT_EQ((*trazos)[1].Pagina, 2);
  EXPECT_TRUE((*trazos)[1].Llena);
  EXPECT_EQ((*trazos)[2].Texto, "logo.bmp");
}

TEST_F(UnInforme, BorrarQuitaSoloLaPaginaEnCurso) {
  informe.Print("primera", true);
  informe.NewPage();
  informe.Print("segunda", true);
  informe.Cls();
  ASSERT_EQ(trazos->size(), 1U);
  EXPECT_EQ(trazos->front().Texto, "primera");
}

}  // namespace
