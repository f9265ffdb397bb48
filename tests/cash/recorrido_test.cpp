#include "cash/recorrido.h"

#include <gtest/gtest.h>

#include <set>

// How the scroll bar takes the rows of the cash screen through its window.

namespace {

namespace recorrido = cash::recorrido;
using recorrido::kArriba;
using recorrido::kPaso;
using recorrido::kVentana;

/// Height of the panel of so many rows.
int Alto(int filas) {
  return kPaso * filas + 360;
}

TEST(Recorrido, CadaFilaDeMasEsUnPasoMas) {
  EXPECT_EQ(recorrido::Pasos(12), 2);
  EXPECT_EQ(recorrido::Pasos(13), 3);
  EXPECT_EQ(recorrido::Pasos(500), 490);
}

TEST(Recorrido, CadaPasoSonQuinientosCuarentaYElUltimoElFinal) {
  EXPECT_EQ(recorrido::ArribaDelPanel(0, 10, Alto(20)), kArriba);
  EXPECT_EQ(recorrido::ArribaDelPanel(3, 10, Alto(20)), kArriba - 3 * 540);
  EXPECT_EQ(recorrido::ArribaDelPanel(10, 10, Alto(20)), kArriba - (Alto(20) - kVentana));
}

TEST(Recorrido, ConPocasFilasYConMuchasTodasSeVenDesdeAlgunLugar) {
  for (const int filas : {12, 13, 50, 200, 500, 5000}) {
    const int pasos = recorrido::Pasos(filas);
    std::set<int> vistas;
    for (int valor = 0; valor <= pasos; ++valor) {
      const int desde = kArriba - recorrido::ArribaDelPanel(valor, pasos, Alto(filas));
      for (int fila = 0; fila < filas; ++fila) {
        const int arriba = 90 + fila * kPaso;
        if (arriba >= desde && arriba + 450 <= desde + kVentana) vistas.insert(fila);
        if (arriba > desde + kVentana) break;
      }
    }
    EXPECT_EQ(vistas.size(), static_cast<std::size_t>(filas)) << filas;
  }
}

TEST(Recorrido, UnaFilaALaVistaNoMueveNada) {
  EXPECT_EQ(recorrido::ValorQueEnsena(0, kArriba, 0), 0);
  EXPECT_EQ(recorrido::ValorQueEnsena(10, kArriba, 0), 0);
  EXPECT_EQ(recorrido::ValorQueEnsena(14, kArriba - 5 * kPaso, 5), 5);
}

TEST(Recorrido, UnaFilaFueraTraeLoJusto) {
  EXPECT_EQ(recorrido::ValorQueEnsena(11, kArriba, 0), 1) << "la de abajo llega al borde de abajo";
  EXPECT_EQ(recorrido::ValorQueEnsena(4, kArriba - 5 * kPaso, 5), 4)
      << "la de arriba llega al borde de arriba";
  EXPECT_EQ(recorrido::ValorQueEnsena(100, kArriba, 0), 90);
}

}  // namespace
