#include "list/pagos_sin_grabar.h"

#include <gtest/gtest.h>

namespace {

using list::PagosSinGrabar;

TEST(PagosSinGrabar, CuentaLasFilasConOtroImporte) {
  PagosSinGrabar pagos;
  EXPECT_EQ(pagos.Cuantos(), 0);
  pagos.Anotar(3, "", "58,00");
  pagos.Anotar(7, "10,00", "20,00");
  EXPECT_EQ(pagos.Cuantos(), 2);
  pagos.Anotar(3, "58,00", "30,00");
  EXPECT_EQ(pagos.Cuantos(), 2) << "otra vez la misma fila";
  pagos.Anotar(5, "9,00", "9,00");
  EXPECT_EQ(pagos.Cuantos(), 2) << "el mismo importe no es un cambio";
}

TEST(PagosSinGrabar, LoQueSeDevuelveNoCuenta) {
  PagosSinGrabar pagos;
  for (const char* nada : {"", "0", "0,00"}) {
    pagos.Anotar(3, "", "58,00");
    pagos.Anotar(3, "58,00", nada);
    EXPECT_EQ(pagos.Cuantos(), 0) << nada;
  }
  pagos.Anotar(4, "32,00", "232,00");
  pagos.Anotar(4, "232,00", "0,00");
  EXPECT_EQ(pagos.Cuantos(), 1) << "lo que estaba grabado se ha quitado";
  pagos.Anotar(4, "0,00", "32,00");
  EXPECT_EQ(pagos.Cuantos(), 0);
}

TEST(PagosSinGrabar, SiguenASuFilaCuandoSeQuitaOtra) {
  PagosSinGrabar pagos;
  pagos.Anotar(2, "", "1,00");
  pagos.Anotar(5, "7,00", "2,00");
  pagos.Anotar(8, "", "3,00");
  pagos.QuitarFila(2);
  EXPECT_EQ(pagos.Cuantos(), 2);
  pagos.QuitarFila(6);
  pagos.Anotar(4, "2,00", "7,00");
  EXPECT_EQ(pagos.Cuantos(), 1) << "la que era la 5 vuelve a lo que tenía";
  pagos.Anotar(6, "3,00", "0,00");
  EXPECT_EQ(pagos.Cuantos(), 0) << "y la que era la 8";
}

TEST(PagosSinGrabar, DiceCuantosSerianSinAnotarlo) {
  PagosSinGrabar pagos;
  pagos.Anotar(3, "", "58,00");
  EXPECT_EQ(pagos.CuantosTras(4, "", "1,00"), 2);
  EXPECT_EQ(pagos.CuantosTras(4, "", "0,00"), 1);
  EXPECT_EQ(pagos.CuantosTras(3, "58,00", "1,00"), 1);
  EXPECT_EQ(pagos.CuantosTras(3, "58,00", "0,00"), 0);
  EXPECT_EQ(pagos.Cuantos(), 1);
}

TEST(PagosSinGrabar, UnaListaNuevaNoTieneNinguno) {
  PagosSinGrabar pagos;
  pagos.Anotar(3, "", "58,00");
  pagos.Olvidar();
  EXPECT_EQ(pagos.Cuantos(), 0);
}

}  // namespace
