#include "apoyo/pantalla_de_prueba.h"
#include "forms/msflexgrid.h"
#include "valores/error.h"

// What happens when another cell becomes the current one.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A grid of the header and four empty rows of four cells, on (1, 0).
class Pasos : public apoyo::ConPantalla {
 protected:
  services::MSFlexGrid& g = f.Msf;
};

TEST_F(Pasos, MoverALaVezFilaYColumnaEsUnSoloPaso) {
  g.MoverA(3, 2);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 1 0", "Msf.RowColChange 3 2"));
}

TEST_F(Pasos, UnPasoDentroDeLeaveCellOcurreYElDeFueraSigueASuSitio) {
  bool dentro = false;
  g.LeaveCell = [&] {
    if (std::exchange(dentro, true)) return;
    g.Col = 3;
    sucesos("dentro " + std::to_string(g.Row) + " " + std::to_string(g.Col));
  };
  g.Row = 4;
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Msf.RowColChange 1 3", "dentro 1 3", "Msf.RowColChange 4 0"));
}

TEST_F(Pasos, UnPasoDentroDeRowColChangeQuedaDondeEsteLoLleva) {
  g.RowColChange = [&] {
    sucesos("RowColChange " + std::to_string(g.Row) + " " + std::to_string(g.Col));
    if (g.Row == 3) g.Row = 2;
  };
  g.Row = 3;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 1 0", "RowColChange 3 0",
                                           "Msf.LeaveCell 3 0", "RowColChange 2 0"));
  EXPECT_EQ(g.Row, 2);
}

TEST_F(Pasos, SiLeaveCellQuitaFilasElPasoAcabaEnLaUltima) {
  g.LeaveCell = [&] { g.Rows = 3; };
  g.Row = 4;
  EXPECT_EQ(g.Row, 2);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.RowColChange 2 0"));
}

TEST_F(Pasos, ElErrorDeLeaveCellSaleYLaCeldaNoCambia) {
  g.LeaveCell = [] { throw services::ErrorEjecucion(13, ""); };
  EXPECT_THROW(g.Row = 3, services::ErrorEjecucion);
  EXPECT_EQ(g.Row, 1);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Pasos, LaVentanaSabeDeLaCeldaAntesDeRowColChange) {
  (void)p.ventanas.Tomar();
  std::vector<std::string> antes;
  g.RowColChange = [&] { antes = p.ventanas.Tomar(); };
  g.Row = 2;
  EXPECT_THAT(antes, ElementsAre("Pantalla: CeldaActual Msf 2 0"));
}

TEST_F(Pasos, LosCuatroEventosSalenDeLoQueHaceElUsuario) {
  services::entrada::DoblePulsarCelda(g, 3, 2);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Msf.MouseDown", "Msf.GotFocus", "Msf.LeaveCell 1 0",
                          "Msf.RowColChange 3 2", "Msf.Click", "Msf.MouseUp", "Msf.DblClick"));
}

}  // namespace
