#include "guion/salida.h"

#include <gtest/gtest.h>

#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "headless/entorno.h"
#include "services/utiles.h"

using guion::Entrecomillar;
using guion::TextoPlano;
using services::Valor;

namespace {

TEST(Salida, LasComillasSeVuelvenALeerIgual) {
  EXPECT_EQ(Entrecomillar("di \"no\" \\ y\notra"), R"("di \"no\" \\ y\notra")");
}

TEST(Salida, LosNumerosLlevanSoloLosDecimalesQueNecesitan) {
  EXPECT_EQ(TextoPlano(1234.5), "1234.5");
  EXPECT_EQ(TextoPlano(3.0), "3");
  EXPECT_EQ(TextoPlano(0.1 + 0.2), "0.3");
  EXPECT_EQ(TextoPlano(-0.0), "0");
  EXPECT_EQ(TextoPlano(-12.25), "-12.25");
  EXPECT_EQ(TextoPlano(1e20), "100000000000000000000");
  EXPECT_EQ(TextoPlano(1e-7), "0.0000001");
}

TEST(Salida, CadaClaseDeValorTieneSuTexto) {
  EXPECT_EQ(TextoPlano(Valor()), "NULL");
  EXPECT_EQ(TextoPlano(Valor(true)), "1");
  EXPECT_EQ(TextoPlano(Valor(false)), "0");
  EXPECT_EQ(TextoPlano(Valor(-7)), "-7");
  EXPECT_EQ(TextoPlano(Valor("Año")), "Año");
  EXPECT_EQ(TextoPlano(Valor(services::HacerFecha(2005, 3, 15, 10, 0, 5))), "2005-03-15 10:00:05");
}

TEST(Salida, UnAvisoDiceTextoFlagsTituloYRespuesta) {
  EXPECT_EQ(guion::LineaDeAviso({"¿Desea guardar los cambios?", 4, "Atención", 6}),
            "aviso \"¿Desea guardar los cambios?\" 4 \"Atención\" -> si");
  EXPECT_EQ(guion::LineaDeAviso({"Fecha\nincorrecta", 16, "", 1}),
            "aviso \"Fecha\\nincorrecta\" 16 \"\" -> aceptar");
}

TEST(Salida, LosTrazosDicenSuPaginaYSusCentimetros) {
  using services::Trazo;
  EXPECT_EQ(guion::LineaDeTrazo(2, {.X1 = 1.256,
                                    .Y1 = 3,
                                    .Texto = "Página 1",
                                    .Letra = {"Times New Roman", 9.5, true},
                                    .Color = 255}),
            "p2 texto 1.26 3.00 \"Página 1\" Times New Roman 9.5 1 255");
  EXPECT_EQ(guion::LineaDeTrazo(1, {.Que = Trazo::Clase::Linea, .Y1 = -0.001, .X2 = 2, .Y2 = 3}),
            "p1 linea 0.00 0.00 2.00 3.00 0");
  EXPECT_EQ(
      guion::LineaDeTrazo(
          1, {.Que = Trazo::Clase::Caja, .Y1 = 1, .X2 = 2, .Y2 = 3, .Color = 7, .Llena = true}),
      "p1 caja 0.00 1.00 2.00 3.00 7 1");
  EXPECT_EQ(
      guion::LineaDeTrazo(1, {.Que = Trazo::Clase::Imagen, .X1 = 4, .Y1 = 5, .Texto = "logo.bmp"}),
      "p1 imagen 4.00 5.00 \"logo.bmp\"");
}

TEST(Salida, UnErrorDiceSuNumeroConSigno) {
  EXPECT_EQ(guion::LineaDeError(-2147467259, "Sin \"red\""), R"(error -2147467259 "Sin \"red\"")");
}

class DeWidgets : public testing::Test {
 protected:
  services::Plataforma plataforma = headless::Entorno::Crear()->Plataforma();
  services::Escritorio escritorio{plataforma};
  services::Ref<services::Form> form =
      services::Crear<services::Form>(escritorio, "FrmUna", 100, 100);
};

TEST_F(DeWidgets, CadaClaseDiceLoSuyoEnElOrdenFijo) {
  services::TextBox caja(*form, "TxtA", {});
  caja.Text = "di \"no\"";
  caja.Tag = "x";
  EXPECT_EQ(guion::LineaDeWidget("TxtA", caja),
            "TxtA Text=\"di \\\"no\\\"\" Tag=\"x\" Enabled=1 Visible=1 BackColor=16777215");
  services::CheckBox casilla(*form, "Chk", "Pagados", {.Enabled = false});
  casilla.Value = true;
  EXPECT_EQ(guion::LineaDeWidget("Chk", casilla),
            "Chk Caption=\"Pagados\" Value=1 Tag=\"\" Enabled=0 Visible=1 BackColor=-2147483633");
  services::ComboBox lista(*form, "Cmb", {"uno", "dos"}, {.Visible = false});
  lista.ListIndex = 1;
  EXPECT_EQ(guion::LineaDeWidget("Cmb", lista),
            "Cmb Text=\"dos\" ListIndex=1 Tag=\"\" Enabled=1 Visible=0 BackColor=16777215");
  services::VScrollBar barra(*form, "Scr", {});
  EXPECT_EQ(guion::LineaDeWidget("Scr", barra),
            "Scr Value=0 Min=0 Max=32767 Tag=\"\" Enabled=1 Visible=1");
}

TEST_F(DeWidgets, LaRejillaDiceTextosImagenesYColores) {
  services::MSFlexGrid rejilla(*form, "G", 3, {});
  rejilla.AnadirFila({"a", "b"});
  rejilla.MoverA(1, 1);
  rejilla.CellPicture = std::string("marca");
  rejilla.CellBackColor = 7;
  rejilla.CellForeColor = 9;
  EXPECT_EQ(guion::LineaDeFila(rejilla, 1), "1: a|b[x]|");
  EXPECT_EQ(guion::LineaDeColores(rejilla, 1), "16777215/0|7/9|16777215/0");
}

}  // namespace
