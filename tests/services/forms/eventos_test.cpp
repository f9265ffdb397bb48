#include "apoyo/pantalla_de_prueba.h"
#include "valores/error.h"

// What each assignment by code fires.

namespace {

using services::ErrorEjecucion;
using testing::ElementsAre;
using testing::IsEmpty;

class Asignaciones : public apoyo::ConPantalla {};

TEST_F(Asignaciones, ElTextoDeUnaCajaDisparaChange) {
  f.TxtA.Text = "uno";
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.Change"));
  f.TxtA.Text = "uno";
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, ChangeYaVeElTextoNuevo) {
  std::string visto;
  f.TxtA.Change = [&] { visto = f.TxtA.Text; };
  f.TxtA.Text = "uno";
  EXPECT_EQ(visto, "uno");
}

TEST_F(Asignaciones, UnaAsignacionDentroDeChangeDisparaOtroChange) {
  f.TxtA.Change = [this] {
    sucesos("Change " + f.TxtA.Text());
    if (f.TxtA.Text == "1") f.TxtA.Text = "1,00";
  };
  f.TxtA.Text = "1";
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Change 1", "Change 1,00"));
}

TEST_F(Asignaciones, ElErrorDeUnManejadorSaleDeLaAsignacionYElValorQueda) {
  f.TxtA.Change = [] { throw ErrorEjecucion(services::error::TiposNoCoinciden, ""); };
  EXPECT_THROW(f.TxtA.Text = "x", ErrorEjecucion);
  EXPECT_EQ(f.TxtA.Text, "x");
}

TEST_F(Asignaciones, ElTextoDeUnaCajaOcultaOInhabilitadaTambienDispara) {
  f.TxtA.Visible = false;
  f.TxtA.Enabled = false;
  f.TxtA.Text = "uno";
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.Change"));
}

TEST_F(Asignaciones, EnSilencioNoDisparaNadaYSeVe) {
  (void)p.ventanas.Tomar();
  EXPECT_TRUE(f.TxtA.Text.PonerEnSilencio("uno"));
  EXPECT_TRUE(f.Chk.Value.PonerEnSilencio(true));
  EXPECT_FALSE(f.Chk.Value.PonerEnSilencio(true));
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Cambiada TxtA", "Pantalla: Cambiada Chk"));
}

TEST_F(Asignaciones, ElCodigoEscribeEnUnaCajaBloqueadaYMasDeLoQueCabe) {
  f.TxtA.Locked = true;
  f.TxtA.MaxLength = 2;
  f.TxtA.Text = "largo";
  EXPECT_EQ(f.TxtA.Text, "largo");
}

TEST_F(Asignaciones, LaCasillaDisparaClickAlCambiarDeValor) {
  f.Chk.Value = true;
  f.Chk.Value = true;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Chk.Click"));
  f.Chk.Value = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Chk.Click"));
}

TEST_F(Asignaciones, LaOpcionEncendidaApagaLasDeSuGrupoEnSilencioYDisparaClick) {
  f.OptDentro.Value = true;
  f.OptUno.Value = true;
  (void)sucesos.Tomar();
  bool apagadaAntes = false;
  f.OptDos.Click = [&] { apagadaAntes = !f.OptUno.Value; };
  f.OptDos.Value = true;
  EXPECT_TRUE(apagadaAntes);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_FALSE(f.OptUno.Value);
  EXPECT_TRUE(f.OptDentro.Value) << "la de otro contenedor es de otro grupo";
}

TEST_F(Asignaciones, LaOpcionApagadaNoDisparaNada) {
  f.OptUno.Value = true;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("OptUno.Click"));
  f.OptUno.Value = true;
  f.OptUno.Value = false;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, ElElementoDeUnaListaDisparaClickYElTextoLeSigue) {
  f.Cbo.ListIndex = 1;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Cbo.Click"));
  EXPECT_EQ(f.Cbo.Text, "Meses");
  f.Cbo.ListIndex = 1;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, ElTextoDeUnaListaEligeElElementoYDisparaClick) {
  f.Cbo.Text = "Años";
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Cbo.Click"));
  EXPECT_EQ(f.Cbo.ListIndex, 2);
  f.Cbo.Text = "Años";
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, UnElementoQueLaListaNoTieneEsUnErrorYNadaCambia) {
  f.Cbo.ListIndex = 1;
  (void)sucesos.Tomar();
  EXPECT_THROW(f.Cbo.ListIndex = 3, ErrorEjecucion);
  EXPECT_THROW(f.Cbo.ListIndex = -2, ErrorEjecucion);
  EXPECT_THROW(f.Cbo.Text = "Siglos", ErrorEjecucion);
  EXPECT_EQ(f.Cbo.ListIndex, 1);
  EXPECT_EQ(f.Cbo.Text, "Meses");
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, VaciarYLlenarUnaListaNoDisparaNada) {
  f.Cbo.ListIndex = 1;
  (void)sucesos.Tomar();
  f.Cbo.Clear();
  EXPECT_EQ(f.Cbo.ListIndex, -1);
  EXPECT_EQ(f.Cbo.Text, "");
  f.Cbo.AddItem("Semanas");
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, LaBarraDisparaChangeAlCambiarDeValor) {
  f.Barra.Value = 7;
  f.Barra.Value = 7;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Barra.Change"));
}

TEST_F(Asignaciones, LaBarraNoPasaDeSusTopes) {
  f.Barra.Max = 10;
  f.Barra.Value = 25;
  EXPECT_EQ(f.Barra.Value, 10);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Barra.Change"));
  f.Barra.Value = 30;
  EXPECT_EQ(f.Barra.Value, 10);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty()) << "el valor sigue siendo el mismo";
  f.Barra.Max = 4;
  EXPECT_EQ(f.Barra.Value, 4);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Barra.Change"));
}

TEST_F(Asignaciones, LaFilaDeUnaRejillaDejaLaCeldaSeMueveYAvisa) {
  f.Msf.Row = 3;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 1 0", "Msf.RowColChange 3 0"));
  f.Msf.Row = 3;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, LaColumnaDeUnaRejillaDejaLaCeldaSeMueveYAvisa) {
  f.Msf.Col = 2;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 1 0", "Msf.RowColChange 1 2"));
  f.Msf.Col = 2;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, MenosFilasMetenLaCeldaActualEnSilencio) {
  f.Msf.MoverA(4, 2);
  (void)sucesos.Tomar();
  f.Msf.Rows = 3;
  EXPECT_EQ(f.Msf.Row, 2);
  EXPECT_EQ(f.Msf.Col, 2);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, OcultarElWidgetConFocoDisparaSuLostFocusYNadieLoTiene) {
  PonerFoco(f.TxtA);
  f.TxtA.Visible = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus"));
  EXPECT_EQ(Foco(), nullptr);
}

TEST_F(Asignaciones, InhabilitarElWidgetConFocoDisparaSuLostFocusYNadieLoTiene) {
  PonerFoco(f.TxtA);
  f.TxtA.Enabled = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus"));
  EXPECT_EQ(Foco(), nullptr);
}

TEST_F(Asignaciones, OcultarOInhabilitarUnContenedorDelFocoHaceLoMismo) {
  PonerFoco(f.TxtDentro);
  f.Pic.Visible = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtDentro.LostFocus"));
  f.Pic.Visible = true;
  PonerFoco(f.TxtDentro);
  f.PicDentro.Enabled = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtDentro.LostFocus"));
  EXPECT_EQ(Foco(), nullptr);
}

TEST_F(Asignaciones, OcultarUnWidgetSinFocoNoDisparaNada) {
  PonerFoco(f.TxtA);
  f.TxtB.Visible = false;
  f.Pic.Enabled = false;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(Foco(), &f.TxtA);
}

TEST_F(Asignaciones, LasDemasPropiedadesNoDisparanNada) {
  for (services::Widget* w : f.Widgets()) {
    w->Tag = "1";
    w->BackColor = services::color::ConFoco;
    w->ForeColor = services::color::Blanco;
    w->Left = 15;
    w->Width = 30;
    w->FontSize = 10;
    w->FontBold = true;
  }
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Asignaciones, LaVentanaSabeDeUnValorNuevoUnaVezYDelMismoNinguna) {
  (void)p.ventanas.Tomar();
  f.TxtA.Tag = "1";
  f.TxtA.Tag = "1";
  f.Lbl.Caption = "Otro";
  f.Lbl.Caption = "Otro";
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Cambiada TxtA", "Pantalla: Cambiada Lbl"));
}

TEST_F(Asignaciones, LaVentanaVeApagarseLasOtrasOpciones) {
  f.OptUno.Value = true;
  (void)p.ventanas.Tomar();
  f.OptDos.Value = true;
  EXPECT_THAT(p.ventanas.Tomar(),
              ElementsAre("Pantalla: Cambiada OptUno", "Pantalla: Cambiada OptDos"));
}

TEST_F(Asignaciones, UnaCajaNoEsMasBajaQueSuLinea) {
  f.TxtA.Height = 100;
  EXPECT_EQ(f.TxtA.Height, services::TextBox::AltoDeLinea(f.TxtA.FontSize));
  f.TxtA.Height = 900;
  EXPECT_EQ(f.TxtA.Height, 900);
}

}  // namespace
