#include "apoyo/pantalla_de_prueba.h"
#include "valores/error.h"

namespace {

using services::ErrorEjecucion;
using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;

class Foco : public apoyo::ConPantalla {
 protected:
  void SetUp() override { PonerFoco(f.TxtA); }
};

TEST_F(Foco, SetFocusDejaElViejoYLlegaAlNuevo) {
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
  EXPECT_FALSE(f.TxtA.TieneFoco());
}

TEST_F(Foco, SinNadieConFocoSoloHayGotFocus) {
  f.TxtA.Enabled = false;
  (void)sucesos.Tomar();
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtB.GotFocus"));
}

TEST_F(Foco, SobreElQueYaLoTieneNoHaceNada) {
  f.TxtA.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(p.escritorio.Foco(), &f.TxtA);
}

TEST_F(Foco, SobreLoOcultoOInhabilitadoNoHaceNada) {
  f.TxtB.Visible = false;
  f.Chk.Enabled = false;
  f.Pic.Visible = false;
  f.TxtB.SetFocus();
  f.Chk.SetFocus();
  f.TxtDentro.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(Foco, SobreLoQueNoTomaElFocoNoHaceNada) {
  f.Lbl.SetFocus();
  f.BtnCancelar.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(Foco, ElDestinoQuePideElQueSaleTomaElLugarDelPrimero) {
  f.TxtA.LostFocus = [this] { f.Chk.SetFocus(); };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Chk.GotFocus"));
  EXPECT_TRUE(f.Chk.TieneFoco());
}

TEST_F(Foco, DeVariosDestinosCuentaElUltimo) {
  f.TxtA.LostFocus = [this] {
    f.Chk.SetFocus();
    f.Cbo.SetFocus();
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Cbo.GotFocus"));
}

TEST_F(Foco, UnDestinoOcultoNoTomaElLugarDelPrimero) {
  f.Chk.Visible = false;
  f.TxtA.LostFocus = [this] { f.Chk.SetFocus(); };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtB.GotFocus"));
}

TEST_F(Foco, DevueltoAlQueSaleEsteRecibeGotFocusOtraVez) {
  f.TxtA.LostFocus = [this] {
    sucesos("TxtA.LostFocus");
    f.TxtA.SetFocus();
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "TxtA.GotFocus"));
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(Foco, SetFocusDentroDeLostFocusNoMueveTodavia) {
  bool todavia = false;
  f.TxtA.LostFocus = [&] {
    f.Chk.SetFocus();
    todavia = !f.Chk.TieneFoco();
  };
  f.TxtB.SetFocus();
  EXPECT_TRUE(todavia);
}

TEST_F(Foco, SetFocusDentroDeGotFocusEsOtroPasoDelFoco) {
  f.TxtB.GotFocus = [this] {
    sucesos("TxtB.GotFocus");
    f.Chk.SetFocus();
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("TxtA.LostFocus", "TxtB.GotFocus", "TxtB.LostFocus", "Chk.GotFocus"));
}

TEST_F(Foco, SiAlDejarSeOcultaElDestinoNadieTieneElFoco) {
  f.TxtA.LostFocus = [this] { f.TxtB.Visible = false; };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Foco, SiAlDejarSeOcultaElQueSaleNoHayOtroLostFocus) {
  f.TxtA.LostFocus = [this] {
    sucesos("TxtA.LostFocus");
    f.TxtA.Visible = false;
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

TEST_F(Foco, AlPerderloPorOcultarseElManejadorPuedeDarloAOtro) {
  f.TxtA.LostFocus = [this] { f.TxtB.SetFocus(); };
  f.TxtA.Visible = false;
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

TEST_F(Foco, AlPerderloPorOcultarseNoSePuedeDevolver) {
  f.TxtA.LostFocus = [this] { f.TxtA.SetFocus(); };
  f.TxtA.Enabled = false;
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Foco, ElErrorDeLostFocusSaleYElFocoSigueSuCamino) {
  f.TxtA.LostFocus = [] { throw ErrorEjecucion(services::error::TiposNoCoinciden, ""); };
  EXPECT_THROW(f.TxtB.SetFocus(), ErrorEjecucion);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

TEST_F(Foco, TrasElErrorDeLostFocusLaVentanaSabeDondeEstaElFoco) {
  f.TxtA.LostFocus = [] { throw ErrorEjecucion(services::error::TiposNoCoinciden, ""); };
  (void)p.ventanas.Tomar();
  entrada::Enfocar(f.TxtB);
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Foco TxtB", "Pantalla: FinDeEvento"));
}

TEST_F(Foco, TrasUnErrorDeLostFocusElFocoVuelveAMoverse) {
  bool falla = true;
  f.TxtA.LostFocus = [&] {
    if (falla) throw ErrorEjecucion(services::error::TiposNoCoinciden, "");
    f.Chk.SetFocus();
  };
  EXPECT_THROW(f.TxtB.SetFocus(), ErrorEjecucion);
  falla = false;
  f.TxtA.SetFocus();
  f.TxtB.SetFocus();
  EXPECT_TRUE(f.Chk.TieneFoco());
}

TEST_F(Foco, SiLostFocusOcultaElDestinoYFallaNadieTieneElFoco) {
  f.TxtA.LostFocus = [this] {
    f.TxtB.Visible = false;
    throw ErrorEjecucion(services::error::TiposNoCoinciden, "");
  };
  EXPECT_THROW(f.TxtB.SetFocus(), ErrorEjecucion);
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Foco, UnMensajeMientrasSeDejaNoDisparaNada) {
  f.TxtA.LostFocus = [this] {
    sucesos("TxtA.LostFocus");
    p.escritorio.Esperar([this] { sucesos("mensaje"); });
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "mensaje", "TxtB.GotFocus"));
}

TEST_F(Foco, TrasUnMensajeElManejadorTodaviaMandaElFocoDondeQuiere) {
  f.TxtA.LostFocus = [this] {
    p.escritorio.Esperar([] {});
    f.TxtA.SetFocus();
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.GotFocus"));
}

TEST_F(Foco, UnaPantallaModalAbiertaAlDejarNoPierdeElDestino) {
  const auto otra = services::Crear<services::Form>(p.escritorio, "Otra", 100, 100);
  services::TextBox caja(*otra, "Caja", {});
  apoyo::Apuntar(caja, sucesos);
  p.espera = [&](services::Form& abierta) {
    entrada::Enfocar(caja);
    abierta.Hide();
  };
  f.TxtA.LostFocus = [&] {
    sucesos("TxtA.LostFocus");
    otra->ShowModal();
  };
  f.TxtB.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "Caja.GotFocus", "TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

class FocoTrasUnaModal : public Foco {
 protected:
  /// Opens it from the screen, does that in it, and closes it.
  void Abrir(const std::function<void()>& dentro) {
    p.espera = [&](services::Form& abierta) {
      dentro();
      abierta.Hide();
    };
    p.escritorio.Evento([&] { modal->ShowModal(); });
  }
  services::Ref<services::Form> modal =
      services::Crear<services::Form>(p.escritorio, "Modal", 100, 100);
  services::TextBox caja{*modal, "Caja", {.TabIndex = 0}};
};

TEST_F(FocoTrasUnaModal, DentroNadieLoTieneYVuelveSinEventosADondeEstaba) {
  Abrir([this] { EXPECT_EQ(p.escritorio.Foco(), nullptr); });
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(FocoTrasUnaModal, LaTeclaTabEmpiezaPorLoPrimeroDeLaModal) {
  Abrir([this] {
    entrada::Tabular(*modal, false);
    EXPECT_TRUE(caja.TieneFoco());
  });
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(FocoTrasUnaModal, LoQueLaModalDioAOtroSeQueda) {
  Abrir([this] { f.TxtB.SetFocus(); });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtB.GotFocus"));
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

TEST_F(FocoTrasUnaModal, LoQueSeInhabilitoMientrasSigueSiendoDondeEmpiezaTab) {
  Abrir([this] { f.TxtA.Enabled = false; });
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
  EXPECT_EQ(p.escritorio.FocoPerdido(), &f.TxtA);
}

TEST_F(FocoTrasUnaModal, DondeSePerdioAntesSigueSiendoDondeEmpiezaTab) {
  f.TxtA.Enabled = false;
  (void)sucesos.Tomar();
  Abrir([this] { EXPECT_EQ(p.escritorio.FocoPerdido(), nullptr); });
  EXPECT_EQ(p.escritorio.FocoPerdido(), &f.TxtA);
}

TEST_F(FocoTrasUnaModal, MientrasDuraLoDeDetrasNoSeAlcanza) {
  Abrir([this] {
    EXPECT_TRUE(p.escritorio.AlAlcance(*modal));
    EXPECT_FALSE(p.escritorio.AlAlcance(f));
    entrada::Pulsar(f.Btn);
    entrada::Enfocar(f.TxtB);
    entrada::CerrarBarra(f.Barra1);
    entrada::Tabular(f, false);
    entrada::Cancelar(f);
    modal->ShowModal();  // waited for already
  });
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_TRUE(p.escritorio.AlAlcance(f));
}

TEST_F(FocoTrasUnaModal, NoVuelveALoQueYaNoEsta) {
  auto otra = std::make_unique<services::TextBox>(f, "Otra", services::Diseno{});
  PonerFoco(*otra);
  Abrir([&] { otra.reset(); });
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
  EXPECT_EQ(p.escritorio.FocoPerdido(), nullptr);
}

TEST_F(FocoTrasUnaModal, UnaCargaQueFallaLoDeja) {
  (void)sucesos.Tomar();
  modal->Load();
  modal->Unload();
  EXPECT_THROW(modal->ShowModal(), ErrorEjecucion);
  EXPECT_TRUE(f.TxtA.TieneFoco());
}

TEST_F(Foco, UnaEtiquetaConTecladoTomaElFocoPeroNoAlPulsarla) {
  services::Label fila(f, "Fila", "", services::Diseno{}.Tab(20).ConTeclado());
  apoyo::Apuntar(fila, sucesos);
  entrada::Pulsar(fila);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Fila.MouseDown", "Fila.Click", "Fila.MouseUp"));
  EXPECT_TRUE(f.TxtA.TieneFoco());
  fila.SetFocus();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "Fila.GotFocus"));
  entrada::Tecla(fila, services::tecla::Espacio);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Fila.MouseDown", "Fila.Click", "Fila.MouseUp"));
  entrada::Tecla(fila, services::tecla::Intro);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Foco, LaVentanaSabeDelFocoAntesDeGotFocus) {
  (void)p.ventanas.Tomar();
  std::vector<std::string> antes;
  f.TxtB.GotFocus = [&] { antes = p.ventanas.Tomar(); };
  f.TxtB.SetFocus();
  EXPECT_THAT(antes, ElementsAre("Pantalla: Foco TxtB"));
}

TEST_F(Foco, UnWidgetQueSeVaLoDejaSinEventos) {
  auto caja = std::make_unique<services::TextBox>(f, "Otra", services::Diseno{});
  PonerFoco(*caja);
  caja->LostFocus = [this] { sucesos("Otra.LostFocus"); };
  caja.reset();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Foco, ElDestinoQueSeVaAlDejarDejaElFocoSinNadie) {
  auto caja = std::make_unique<services::TextBox>(f, "Otra", services::Diseno{});
  f.TxtA.LostFocus = [&] { caja.reset(); };
  caja->SetFocus();
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Foco, ElTabuladorSigueElOrdenDisenado) {
  std::vector<std::string> visitados;
  for (int i = 0; i < 10; ++i) {
    entrada::Tabular(f, false);
    visitados.push_back(p.escritorio.Foco()->Nombre());
  }
  EXPECT_THAT(visitados, ElementsAre("TxtB", "TxtDentro", "Chk", "OptUno", "OptDos", "Cbo", "Btn",
                                     "Barra", "Msf", "TxtA"));
}

TEST_F(Foco, ElTabuladorHaciaAtrasDaLaVuelta) {
  entrada::Tabular(f, true);
  EXPECT_TRUE(f.Msf.TieneFoco());
  entrada::Tabular(f, true);
  EXPECT_TRUE(f.Barra.TieneFoco());
}

TEST_F(Foco, ElTabuladorSaltaLoQueNoSeAlcanza) {
  f.TxtB.Enabled = false;
  f.Pic.Visible = false;
  f.Chk.TabStop = false;
  entrada::Tecla(f.TxtA, services::tecla::Tabulador);
  EXPECT_TRUE(f.OptUno.TieneFoco());
}

TEST_F(Foco, ElTabuladorSinFocoVaAlPrimero) {
  f.TxtA.Enabled = false;
  entrada::Tabular(f, false);
  EXPECT_TRUE(f.TxtB.TieneFoco());
}

}  // namespace
