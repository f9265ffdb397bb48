#include "apoyo/errores.h"
#include "apoyo/pantalla_de_prueba.h"
#include "forms/msflexgrid.h"
#include "valores/error.h"

namespace {

using services::MSFlexGrid;
using testing::ElementsAre;
using testing::IsEmpty;
namespace color = services::color;

template <class Accion>
bool NoHayCelda(Accion&& accion) {
  return apoyo::NumeroDeError(accion) == services::error::CeldaNoValida;
}

/// A grid of the header and four empty rows of four cells, on (1, 0).
class Rejilla : public apoyo::ConPantalla {
 protected:
  [[nodiscard]] std::vector<std::string> Columna(int columna) const {
    std::vector<std::string> textos;
    for (int fila = 0; fila < g.Rows; ++fila) textos.push_back(g.TextMatrix(fila, columna));
    return textos;
  }

  MSFlexGrid& g = f.Msf;
};

TEST_F(Rejilla, NaceConLaCabeceraSola) {
  MSFlexGrid nueva(f, "Nueva", 3, {});
  EXPECT_EQ(nueva.Rows, 1);
  EXPECT_EQ(nueva.Cols(), 3);
  EXPECT_EQ(nueva.Row, 0);
  EXPECT_EQ(nueva.Col, 0);
}

TEST_F(Rejilla, UnaFilaNuevaVaAlFinal) {
  g.AnadirFila({"a", "b", "", "d"});
  EXPECT_EQ(g.Rows, 6);
  EXPECT_EQ(g.TextMatrix(5, 0), "a");
  EXPECT_EQ(g.TextMatrix(5, 1), "b");
  EXPECT_EQ(g.TextMatrix(5, 2), "");
  EXPECT_EQ(g.TextMatrix(5, 3), "d");
}

TEST_F(Rejilla, UnaFilaNuevaDejaVacioLoQueFaltaYQuitaLoQueSobra) {
  g.AnadirFila({"a"});
  g.AnadirFila({"1", "2", "3", "4", "5", "6"});
  g.AnadirFila({});
  EXPECT_EQ(g.TextMatrix(5, 1), "");
  EXPECT_EQ(g.TextMatrix(6, 3), "4");
  EXPECT_EQ(g.TextMatrix(7, 0), "");
  EXPECT_EQ(g.Rows, 8);
}

TEST_F(Rejilla, UnaFilaNuevaTraeSusColoresOLosDeLaRejilla) {
  g.AnadirFila({"a"});
  g.AnadirFila({"b"}, 255, 128);
  EXPECT_EQ(g.FondoDe(5, 2), g.BackColor);
  EXPECT_EQ(g.ColorDe(5, 2), g.ForeColor);
  EXPECT_EQ(g.FondoDe(6, 3), 255);
  EXPECT_EQ(g.ColorDe(6, 3), 128);
}

TEST_F(Rejilla, UnaFilaNuevaNoMueveLaCeldaNiDisparaNada) {
  g.AnadirFila({"a"});
  EXPECT_EQ(g.Row, 1);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Rejilla, RemoveItemSubeLasDeAbajoConTodoLoSuyo) {
  g.TextMatrix(2, 1, "dos");
  g.TextMatrix(3, 1, "tres");
  g.MoverA(3, 1);
  g.CellBackColor = 255;
  g.CellForeColor = 128;
  g.CellPicture = "check";
  g.CellAlignment = MSFlexGrid::alineacion::DerechaCentro;
  g.CellFontSize = 14;
  g.CellFontBold = true;
  g.RemoveItem(2);
  EXPECT_EQ(g.Rows, 4);
  EXPECT_EQ(g.TextMatrix(2, 1), "tres");
  EXPECT_EQ(g.FondoDe(2, 1), 255);
  EXPECT_EQ(g.ColorDe(2, 1), 128);
  EXPECT_EQ(g.ImagenDe(2, 1), "check");
  EXPECT_EQ(g.AlineacionDe(2, 1), MSFlexGrid::alineacion::DerechaCentro);
  EXPECT_EQ(g.CuerpoDe(2, 1), 14);
  EXPECT_TRUE(g.NegritaDe(2, 1));
  EXPECT_EQ(g.FondoDe(3, 1), color::Blanco);
}

TEST_F(Rejilla, RemoveItemDeLaUltimaMeteLaCeldaActualEnSilencio) {
  g.MoverA(4, 1);
  (void)sucesos.Tomar();
  g.RemoveItem(4);
  EXPECT_EQ(g.Row, 3);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Rejilla, LaCabeceraNoSeQuita) {
  EXPECT_TRUE(NoHayCelda([&] { g.RemoveItem(0); }));
  EXPECT_TRUE(NoHayCelda([&] { g.RemoveItem(5); }));
  EXPECT_TRUE(NoHayCelda([&] { g.RemoveItem(-1); }));
  EXPECT_TRUE(NoHayCelda([&] { g.Rows = 0; }));
  EXPECT_EQ(g.Rows, 5);
}

TEST_F(Rejilla, MenosFilasQuitanLasUltimasYMasVienenVacias) {
  for (int fila = 1; fila < 5; ++fila) g.TextMatrix(fila, 0, std::to_string(fila));
  g.MoverA(4, 0);
  g.CellBackColor = 255;
  g.Rows = 3;
  g.Rows = 5;
  EXPECT_THAT(Columna(0), ElementsAre("", "1", "2", "", ""));
  EXPECT_EQ(g.FondoDe(4, 0), color::Blanco);
}

TEST_F(Rejilla, LaCabeceraSolaDejaLaCeldaActualEnElla) {
  g.MoverA(3, 2);
  (void)sucesos.Tomar();
  g.Rows = 1;
  EXPECT_EQ(g.Row, 0);
  EXPECT_EQ(g.Col, 2);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Rejilla, TextEsElDeLaCeldaActual) {
  g.MoverA(2, 3);
  g.Text = "x";
  EXPECT_EQ(g.TextMatrix(2, 3), "x");
  EXPECT_EQ(g.Text(), "x");
}

TEST_F(Rejilla, UnaCeldaSinColorTieneElDeLaRejillaOElDeLaCabecera) {
  g.BackColor = 100;
  g.BackColorFixed = 200;
  g.ForeColor = 50;
  EXPECT_EQ(g.FondoDe(1, 1), 100);
  EXPECT_EQ(g.FondoDe(0, 1), 200);
  EXPECT_EQ(g.ColorDe(1, 1), 50);
}

TEST_F(Rejilla, UnaCeldaConColorLoConservaYLasDemasNo) {
  g.CellBackColor = color::Negro;
  g.CellForeColor = color::Panel;
  g.BackColor = 100;
  g.ForeColor = 50;
  EXPECT_EQ(g.CellBackColor, color::Negro);
  EXPECT_EQ(g.CellForeColor, color::Panel);
  EXPECT_EQ(g.FondoDe(1, 1), 100);
  EXPECT_EQ(g.ColorDe(1, 1), 50);
}

TEST_F(Rejilla, ElDibujoEsDeLaCeldaYSuTextoSigue) {
  g.Text = "si";
  g.CellPicture = "check";
  g.MoverA(2, 0);
  g.CellPicture = "otro";
  EXPECT_EQ(g.ImagenDe(1, 0), "check");
  EXPECT_EQ(g.TextMatrix(1, 0), "si");
  EXPECT_EQ(g.ImagenDe(2, 0), "otro");
  g.CellPicture = "";
  EXPECT_EQ(g.CellPicture(), "");
  EXPECT_EQ(g.ImagenDe(1, 1), "");
}

TEST_F(Rejilla, LaAlineacionEsDeLaCeldaODeSuColumna) {
  using A = MSFlexGrid::alineacion;
  EXPECT_EQ(g.AlineacionDe(1, 1), A::General);
  EXPECT_EQ(g.AlineacionDe(0, 1), A::IzquierdaCentro);
  g.ColAlignment(1, A::DerechaCentro);
  g.FixedAlignment(1, A::CentroCentro);
  g.MoverA(2, 1);
  g.CellAlignment = A::IzquierdaArriba;
  EXPECT_EQ(g.AlineacionDe(1, 1), A::DerechaCentro);
  EXPECT_EQ(g.AlineacionDe(2, 1), A::IzquierdaArriba);
  EXPECT_EQ(g.AlineacionDe(0, 1), A::CentroCentro);
  EXPECT_EQ(g.AlineacionDe(1, 0), A::General);
}

TEST_F(Rejilla, LaFuenteEsDeLaCeldaODeLaRejilla) {
  g.FontSize = 9;
  g.CellFontSize = 12;
  g.CellFontBold = true;
  EXPECT_EQ(g.CuerpoDe(1, 0), 12);
  EXPECT_EQ(g.CuerpoDe(1, 1), 9);
  EXPECT_TRUE(g.CellFontBold);
  g.FontBold = true;
  g.CellFontBold = false;
  EXPECT_FALSE(g.NegritaDe(1, 0));
  EXPECT_TRUE(g.NegritaDe(1, 1));
}

TEST_F(Rejilla, LaPosicionDeLaCeldaSumaAnchosYFilas) {
  g.ColWidth(0, 1000);
  g.ColWidth(1, 0);
  g.ColWidth(2, 500);
  g.RowHeightMin = 300;
  g.MoverA(3, 2);
  EXPECT_EQ(g.CellLeft(), 1000);
  EXPECT_EQ(g.CellTop(), 900);
  EXPECT_EQ(g.CellWidth(), 500);
  EXPECT_EQ(g.CellHeight(), 300);
  g.TopRow = 3;
  EXPECT_EQ(g.CellTop(), 300) << "la cabecera queda siempre arriba";
  g.MoverA(0, 0);
  EXPECT_EQ(g.CellTop(), 0);
}

TEST_F(Rejilla, LoQueNoTieneEsElError381YNadaSeMueve) {
  EXPECT_TRUE(NoHayCelda([&] { g.Row = 5; }));
  EXPECT_TRUE(NoHayCelda([&] { g.Row = -1; }));
  EXPECT_TRUE(NoHayCelda([&] { g.Col = 4; }));
  EXPECT_TRUE(NoHayCelda([&] { g.Col = -1; }));
  EXPECT_TRUE(NoHayCelda([&] { g.MoverA(9, 9); }));
  EXPECT_TRUE(NoHayCelda([&] { (void)g.TextMatrix(5, 0); }));
  EXPECT_TRUE(NoHayCelda([&] { g.TextMatrix(0, 4, "x"); }));
  EXPECT_TRUE(NoHayCelda([&] { (void)g.ColWidth(4); }));
  EXPECT_TRUE(NoHayCelda([&] { g.ColAlignment(-1, 0); }));
  EXPECT_EQ(g.Row, 1);
  EXPECT_EQ(g.Col, 0);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Rejilla, LaVentanaSabeDeCadaCambioUnaVez) {
  (void)p.ventanas.Tomar();
  for (int vez = 0; vez < 2; ++vez) {
    g.TextMatrix(2, 1, "x");
    g.CellBackColor = 5;
    g.CellForeColor = 5;
    g.CellPicture = "check";
    g.CellAlignment = 1;
    g.CellFontSize = 12;
    g.CellFontBold = true;
    g.ColWidth(1, 10);
    g.ColAlignment(1, 1);
    g.FixedAlignment(1, 4);
    g.Rows = 4;
  }
  std::vector<std::string> esperado{"Pantalla: CeldaCambiada Msf 2 1"};
  esperado.insert(esperado.end(), 6, "Pantalla: CeldaCambiada Msf 1 0");
  for (const char* linea : {"Pantalla: Cambiada Msf", "Pantalla: FilasCambiadas Msf",
                            "Pantalla: CeldaCambiada Msf 0 1", "Pantalla: FilasCambiadas Msf"}) {
    esperado.emplace_back(linea);
  }
  EXPECT_EQ(p.ventanas.Tomar(), esperado);
}

}  // namespace
