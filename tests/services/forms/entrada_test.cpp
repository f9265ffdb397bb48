#include "forms/entrada.h"

#include "apoyo/pantalla_de_prueba.h"
#include "valores/error.h"

// What the mouse fires, and what the user does to lists, bars and title bars.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;

class Raton : public apoyo::ConPantalla {};

class SinFoco : public apoyo::ConPantalla {
 protected:
  /// Where the Tab key goes once the widget with the focus is out of reach.
  services::Widget* TrasPerderlo(services::Widget& widget, bool atras) {
    widget.Enabled = true;
    PonerFoco(widget);
    widget.Enabled = false;
    EXPECT_EQ(Foco(), nullptr);
    entrada::Tabular(f, atras);
    return Foco();
  }
};

TEST_F(SinFoco, ElTabuladorSigueDesdeDondeSePerdio) {
  EXPECT_EQ(TrasPerderlo(f.Chk, false), &f.OptUno);
  EXPECT_EQ(TrasPerderlo(f.Chk, true), &f.TxtDentro);
  EXPECT_EQ(TrasPerderlo(f.Msf, false), &f.TxtA) << "del último al primero";
  EXPECT_EQ(TrasPerderlo(f.TxtA, true), &f.Barra);
}

TEST_F(SinFoco, DesdeLoQueNoEstaEnElOrdenSigueEnSuPanel) {
  f.PicDentro.Enabled = false;
  services::TextBox otro(f.Pic, "Otro", {.TabIndex = 11});
  EXPECT_EQ(TrasPerderlo(f.OptDentro, false), &otro);
  EXPECT_EQ(TrasPerderlo(f.OptDentro, true), &otro);
}

TEST_F(SinFoco, SiAlDejarloSeInhabilitaElDestinoSigueDesdeEl) {
  PonerFoco(f.TxtA);
  f.TxtA.LostFocus = [this] { f.Chk.Enabled = false; };
  f.Chk.SetFocus();
  f.TxtA.LostFocus = nullptr;
  ASSERT_EQ(Foco(), nullptr);
  entrada::Tabular(f, false);
  EXPECT_EQ(Foco(), &f.OptUno);
}

TEST_F(SinFoco, LoQueSeDestruyeNoCuenta) {
  {
    services::TextBox otro(f, "Otro", {.TabIndex = 11});
    PonerFoco(otro);
    otro.Enabled = false;
  }
  EXPECT_EQ(p.escritorio.FocoPerdido(), nullptr);
  entrada::Tabular(f, false);
  EXPECT_EQ(Foco(), &f.TxtA);
}

TEST_F(SinFoco, EscapePulsaElQueCancela) {
  entrada::Cancelar(f);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty()) << "ninguno cancela";
  f.BtnCancelar.Cancela = true;
  entrada::Cancelar(f);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("BtnCancelar.MouseDown", "BtnCancelar.Click", "BtnCancelar.MouseUp"));
  f.BtnCancelar.Enabled = false;
  entrada::Cancelar(f);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Raton, PulsarUnWidgetQueTomaElFoco) {
  PonerFoco(f.TxtA);
  entrada::Pulsar(f.Btn);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Btn.MouseDown", "TxtA.LostFocus", "Btn.GotFocus",
                                           "Btn.Click", "Btn.MouseUp"));
  EXPECT_EQ(Foco(), &f.Btn);
}

TEST_F(Raton, PulsarUnaCasillaCambiaSuValorYDisparaUnSoloClick) {
  entrada::Pulsar(f.Chk);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Chk.MouseDown", "Chk.GotFocus", "Chk.Click", "Chk.MouseUp"));
  EXPECT_TRUE(f.Chk.Value);
  entrada::Pulsar(f.Chk);
  EXPECT_FALSE(f.Chk.Value);
}

TEST_F(Raton, PulsarUnaOpcionLaEnciende) {
  f.OptUno.Value = true;
  (void)sucesos.Tomar();
  entrada::Pulsar(f.OptDos);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("OptDos.MouseDown", "OptDos.GotFocus", "OptDos.Click", "OptDos.MouseUp"));
  EXPECT_TRUE(f.OptDos.Value);
  EXPECT_FALSE(f.OptUno.Value);
}

TEST_F(Raton, SiAlDejarSeMandaElFocoAOtroSitioElClicSePierde) {
  PonerFoco(f.TxtA);
  f.TxtA.LostFocus = [this] { f.TxtB.SetFocus(); };
  entrada::Pulsar(f.Chk);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Chk.MouseDown", "TxtB.GotFocus"));
  EXPECT_FALSE(f.Chk.Value);
}

TEST_F(Raton, SiAlDejarSeVuelveElFocoElClicSePierde) {
  PonerFoco(f.TxtA);
  f.TxtA.LostFocus = [this] { f.TxtA.SetFocus(); };
  entrada::Pulsar(f.Btn);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Btn.MouseDown", "TxtA.GotFocus"));
}

TEST_F(Raton, PulsarLoQueNoTomaElFocoLoDejaDondeEsta) {
  PonerFoco(f.TxtA);
  for (services::Widget* w : std::vector<services::Widget*>{&f.Lbl, &f.Img, &f.Marca, &f.Barra1,
                                                            &f.BtnCancelar, &f.Pic}) {
    entrada::Pulsar(*w);
    const std::string n = w->Nombre();
    EXPECT_THAT(sucesos.Tomar(), ElementsAre(n + ".MouseDown", n + ".Click", n + ".MouseUp"));
    EXPECT_EQ(Foco(), &f.TxtA) << n;
  }
}

TEST_F(Raton, PulsarLoOcultoOInhabilitadoNoHaceNada) {
  f.Btn.Enabled = false;
  f.Chk.Visible = false;
  f.Pic.Enabled = false;
  for (services::Widget* w : std::vector<services::Widget*>{&f.Btn, &f.Chk, &f.OptDentro}) {
    entrada::Pulsar(*w);
  }
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_FALSE(f.OptDentro.Value);
}

TEST_F(Raton, PulsarUnaCeldaDaElFocoMueveYDisparaClick) {
  PonerFoco(f.TxtA);
  entrada::PulsarCelda(f.Msf, 2, 1);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Msf.MouseDown", "TxtA.LostFocus", "Msf.GotFocus", "Msf.LeaveCell 1 0",
                          "Msf.RowColChange 2 1", "Msf.Click", "Msf.MouseUp"));
}

TEST_F(Raton, PulsarLaCeldaActualSoloDisparaClick) {
  PonerFoco(f.Msf);
  entrada::PulsarCelda(f.Msf, 1, 0);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.MouseDown", "Msf.Click", "Msf.MouseUp"));
}

TEST_F(Raton, PulsarLaCabeceraNoLlegaANingunaFila) {
  PonerFoco(f.Msf);
  entrada::DoblePulsarCelda(f.Msf, 0, 3);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.MouseDown", "Msf.MouseUp"));
  EXPECT_EQ(f.Msf.Row, 1);
  EXPECT_EQ(f.Msf.Col, 0);
}

TEST_F(Raton, LaSegundaPulsacionSoloAnadeElDobleClic) {
  PonerFoco(f.Msf);
  entrada::SegundaPulsacion(f.Msf);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.DblClick"));
}

TEST_F(Raton, LlevarLaCeldaMasAllaLaDejaEnLaUltima) {
  PonerFoco(f.Msf);
  entrada::LlevarCelda(f.Msf, 99, 0);
  EXPECT_EQ(f.Msf.Row, f.Msf.Rows - 1);
  entrada::LlevarCelda(f.Msf, -5, 0);
  EXPECT_EQ(f.Msf.Row, 1);
}

TEST_F(Raton, PulsarUnaFilaQueSeFueAlDejarOtroCampoNoLlegaANingunaFila) {
  PonerFoco(f.TxtA);
  f.TxtA.LostFocus = [this] { f.Msf.Rows = 2; };
  entrada::PulsarCelda(f.Msf, 2, 0);
  EXPECT_TRUE(p.errores.empty());
  EXPECT_THAT(sucesos.Tomar(), testing::Not(testing::Contains("Msf.Click")));
  EXPECT_TRUE(f.Msf.TieneFoco());
}

TEST_F(Raton, ElDobleClicAnadeDblClick) {
  PonerFoco(f.Msf);
  entrada::DoblePulsarCelda(f.Msf, 1, 0);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Msf.MouseDown", "Msf.Click", "Msf.MouseUp", "Msf.DblClick"));
}

TEST_F(Raton, SiElPrimerClicLlevaElFocoFueraNoHayDblClick) {
  f.Msf.Click = [this] { f.TxtA.SetFocus(); };
  entrada::DoblePulsarCelda(f.Msf, 2, 0);
  EXPECT_THAT(sucesos.Tomar(), testing::Not(testing::Contains("Msf.DblClick")));
}

TEST_F(Raton, ElegirUnElementoDaElFocoYDisparaClick) {
  entrada::Elegir(f.Cbo, 2);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Cbo.GotFocus", "Cbo.Click"));
  EXPECT_EQ(f.Cbo.Text, "Años");
}

TEST_F(Raton, LasFlechasEligenElElementoVecino) {
  PonerFoco(f.Cbo);
  entrada::Tecla(f.Cbo, services::tecla::Abajo);
  entrada::Tecla(f.Cbo, services::tecla::Abajo);
  entrada::Tecla(f.Cbo, services::tecla::Arriba);
  EXPECT_EQ(f.Cbo.Text, "Días");
  entrada::Tecla(f.Cbo, services::tecla::Arriba);
  EXPECT_EQ(f.Cbo.ListIndex, 0);
}

TEST_F(Raton, MoverUnaBarraYCerrarUnaCintilla) {
  entrada::Mover(f.Barra, 12);
  entrada::CerrarBarra(f.Barra1);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Barra.Change", "Barra1.Cerrar"));
}

TEST_F(Raton, PegarUnTextoDisparaUnChange) {
  f.TxtA.Text = "viejo";
  PonerFoco(f.TxtA);
  entrada::CambiarTexto(f.TxtA, "pegado");
  entrada::CambiarTexto(f.TxtA, "pegado");
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.Change"));
}

TEST_F(Raton, ElErrorDeUnManejadorLlegaAlaPlataformaYElRestoDelClicNoCorre) {
  f.Btn.Click = [] { throw services::ErrorEjecucion(13, "No coinciden los tipos"); };
  entrada::Pulsar(f.Btn);
  ASSERT_EQ(p.errores.size(), 1U);
  EXPECT_EQ(p.errores[0].Numero(), 13);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Btn.MouseDown", "Btn.GotFocus"));
}

}  // namespace
