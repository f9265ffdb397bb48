#include "headless/informe_grabado.h"

#include <gtest/gtest.h>

#include "headless/medidas_fijas.h"

namespace {

class UnInforme : public testing::Test {
 protected:
  std::shared_ptr<headless::Grabacion> grabacion = std::make_shared<headless::Grabacion>();
  headless::ImpresoraGrabada informe{grabacion};
};

TEST_F(UnInforme, GuardaElTextoDondeYComoSeEscribe) {
  informe.FontName = "Times";
  informe.FontSize = 12;
  informe.FontBold = true;
  informe.ForeColor = 255;
  informe.CurrentX = 2.5;
  informe.CurrentY = 3;
  informe.Print("Año", false);
  ASSERT_EQ(grabacion->Trazos.size(), 1U);
  const services::Trazo& t = grabacion->Trazos.front().Trazo;
  EXPECT_EQ(t.Texto, "Año");
  EXPECT_EQ(t.Letra, (services::Letra{"Times", 12, true}));
  EXPECT_EQ(t.Color, 255);
  EXPECT_EQ(t.X1, 2.5);
  EXPECT_EQ(t.Y1, 3);
  EXPECT_DOUBLE_EQ(informe.CurrentX, 2.5 + informe.TextWidth("Año"));
  EXPECT_EQ(informe.CurrentY, 3);
}

TEST_F(UnInforme, CadaTrazoSabeSuPagina) {
  informe.Linea(1, 2, 3, 4, 0);
  informe.NewPage();
  informe.Caja(1, 2, 3, 4, 7, true);
  informe.PaintPicture("logo.bmp", 5, 6);
  const auto& trazos = grabacion->Trazos;
  ASSERT_EQ(trazos.size(), 3U);
  EXPECT_EQ(trazos[0].Pagina, 1);
  EXPECT_EQ(trazos[1].Pagina, 2);
  EXPECT_TRUE(trazos[1].Trazo.Llena);
  EXPECT_EQ(trazos[2].Trazo.Texto, "logo.bmp");
}

TEST_F(UnInforme, BorrarQuitaSoloLaPaginaEnCurso) {
  informe.Print("primera", true);
  informe.NewPage();
  informe.Print("segunda", true);
  informe.Cls();
  ASSERT_EQ(grabacion->Trazos.size(), 1U);
  EXPECT_EQ(grabacion->Trazos.front().Trazo.Texto, "primera");
}

TEST_F(UnInforme, DeUnInformeQueSeDejaNoQuedaNada) {
  informe.Print("primera", true);
  informe.NewPage();
  informe.Print("segunda", true);
  informe.KillDoc();
  EXPECT_TRUE(grabacion->Trazos.empty());
}

TEST_F(UnInforme, UnSignoDeControlEsUnBlanco) {
  informe.Print("a\nb\tc", false);
  EXPECT_EQ(grabacion->Trazos.front().Trazo.Texto, "a b c");
  EXPECT_DOUBLE_EQ(informe.TextWidth("a\nb"), informe.TextWidth("a b"));
}

TEST(MedidasFijas, SonLasDeLaLetraDelInforme) {
  const headless::MedidasFijas medidas;
  const auto milesimas = [&](const char* texto, bool negrita) {
    // A size of a thousand units of a point each.
    return medidas.Ancho({"", 720 / 2.54, negrita}, texto) * 100;
  };
  EXPECT_DOUBLE_EQ(milesimas("0", false), 620);
  EXPECT_DOUBLE_EQ(milesimas("1.234,50", false), 6 * 620 + 2 * 320);
  EXPECT_DOUBLE_EQ(milesimas("ñ", false), milesimas("n", false));
  EXPECT_DOUBLE_EQ(milesimas("ñ", true), 680);
  EXPECT_DOUBLE_EQ(milesimas("…—", true), 2000);
  EXPECT_DOUBLE_EQ(milesimas("漢", false), milesimas("0", false));
  EXPECT_NEAR(medidas.Alto({"", 10, false}), 0.467, 0.001);
  EXPECT_GT(medidas.Alto({"", 10, true}), medidas.Alto({"", 10, false}));
}

}  // namespace
