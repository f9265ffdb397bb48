#include "apoyo/errores.h"
#include "apoyo/pantalla_contada.h"
#include "valores/error.h"

// Modal screens, the one shared instance of a screen, and how its widgets are found.

namespace {

using apoyo::PantallaContada;
using services::Crear;
using services::ErrorEjecucion;
using testing::ElementsAre;
namespace entrada = services::entrada;

class FormularioModal : public apoyo::ConPantallaContada {};
class InstanciaUnica : public apoyo::ConPantallaContada {};
class WidgetsPorNombre : public apoyo::ConPantallaContada {};

TEST_F(FormularioModal, ShowModalVuelveAlOcultarse) {
  p.espera = [this](services::Form&) {
    entrada::Pulsar(form->Btn);
    sucesos("sigue " + std::to_string(form->Visible()));
  };
  form->Btn.Click = [this] { form->Hide(); };
  form->ShowModal();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load", "sigue 0"));
  EXPECT_TRUE(form->Cargado());
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Mostrar modal", "Pantalla: FinDeEvento",
                                              "Pantalla: EsperarModal", "Pantalla: Foco Btn",
                                              "Pantalla: Ocultar", "Pantalla: FinDeEvento"));
}

TEST_F(FormularioModal, ShowModalVuelveAlDescargarseAunqueSeSuelteLaUltimaReferencia) {
  PantallaContada* crudo = form.get();
  p.espera = [&](services::Form&) {
    entrada::Pulsar(crudo->Btn);
    sucesos("vuelve");
  };
  crudo->Btn.Click = [&] {
    form->Unload();
    form = nullptr;
  };
  crudo->ShowModal();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load", "Form_Unload", "vuelve", "destruida"));
}

TEST_F(FormularioModal, LoDescargadoDuranteUnaEsperaDuraHastaQueVuelveQuienEsperaba) {
  form->Show();
  PantallaContada* crudo = form.get();
  crudo->Btn.Click = [&] {
    p.escritorio.Esperar([&] {
      p.escritorio.Operacion([&] {
        form->Unload();
        form = nullptr;
      });
    });
    crudo->Btn.Caption = "sigue";
    sucesos("sigue");
  };
  entrada::Pulsar(crudo->Btn);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load", "Form_Unload", "sigue", "destruida"));
}

TEST_F(FormularioModal, LoDescargadoAntesDeUnaEsperaDuraHastaSuEvento) {
  const auto modal = Crear<PantallaContada>(p.escritorio, sucesos);
  form->Show();
  PantallaContada* crudo = form.get();
  p.espera = [&](services::Form&) {
    entrada::Pulsar(modal->Btn);
    sucesos("espera");
  };
  crudo->Btn.Click = [&] {
    form->Unload();
    form = nullptr;
    modal->ShowModal();
    sucesos("fin de Click");
  };
  (void)sucesos.Tomar();
  entrada::Pulsar(crudo->Btn);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Form_Unload", "Form_Load", "espera", "fin de Click", "destruida"));
}

TEST_F(InstanciaUnica, HaceUnaYDaSiempreLaMisma) {
  services::Instancia<PantallaContada> instancia;
  EXPECT_EQ(instancia.Si(), nullptr);
  PantallaContada& una = instancia.Pedir(p.escritorio, sucesos);
  EXPECT_EQ(&instancia.Pedir(p.escritorio, sucesos), &una);
  EXPECT_EQ(instancia.Si(), &una);
  una.Show();
  una.Hide();
  EXPECT_EQ(&instancia.Pedir(p.escritorio, sucesos), &una);
}

TEST_F(InstanciaUnica, HaceOtraTrasUnaDescarga) {
  services::Instancia<PantallaContada> instancia;
  instancia.Pedir(p.escritorio, sucesos).Txt.Text = "vieja";
  instancia.Si()->Show();
  instancia.Si()->Unload();
  EXPECT_EQ(instancia.Si(), nullptr);
  EXPECT_EQ(instancia.Pedir(p.escritorio, sucesos).Txt.Text, "");
}

TEST_F(InstanciaUnica, HaceOtraTrasUnaCargaFallida) {
  services::Instancia<PantallaContada> instancia;
  instancia.Pedir(p.escritorio, sucesos).AlCargar = [] { Fallar(); };
  EXPECT_THROW(instancia.Si()->Show(), ErrorEjecucion);
  EXPECT_NO_THROW(instancia.Pedir(p.escritorio, sucesos).Show());
}

TEST_F(InstanciaUnica, SueltaLaQueSeDescarga) {
  services::Instancia<PantallaContada> instancia;
  instancia.Pedir(p.escritorio, sucesos).Load();
  p.escritorio.Evento([&] { instancia.Si()->Unload(); });
  EXPECT_EQ(instancia.Si(), nullptr);
  EXPECT_THAT(sucesos.Tomar(), testing::Contains("destruida"));
}

TEST_F(InstanciaUnica, PuedeIrseAntesQueSuPantalla) {
  services::Ref<PantallaContada> pantalla;
  {
    services::Instancia<PantallaContada> instancia;
    pantalla = services::Ref<PantallaContada>(&instancia.Pedir(p.escritorio, sucesos));
    pantalla->Load();
  }
  pantalla->Unload();
  EXPECT_FALSE(pantalla->Cargado());
}

TEST_F(WidgetsPorNombre, UnWidgetSeBuscaPorSuNombre) {
  EXPECT_EQ(form->Buscar("Txt"), &form->Txt);
  EXPECT_EQ(form->Buscar("txt"), nullptr);
  EXPECT_EQ(form->Buscar("Nada"), nullptr);
}

TEST_F(WidgetsPorNombre, LosElementosDeUnaMatrizTienenSuIndice) {
  auto& dos = form->DivSel.Anadir(*form, "DivSel", "", services::Diseno{});
  auto& tres = form->DivSel.Anadir(*form, "DivSel", "", services::Diseno{});
  EXPECT_EQ(form->DivSel.Count(), 3);
  EXPECT_EQ(form->DivSel.UBound(), 2);
  EXPECT_EQ(&form->DivSel(1), &dos);
  EXPECT_EQ(tres.Indice(), 2);
  EXPECT_EQ(form->Buscar("DivSel(2)"), &tres);
  EXPECT_EQ(form->Buscar("DivSel(0)"), &form->DivSel(0));
  EXPECT_EQ(form->Buscar("DivSel"), nullptr);
  EXPECT_EQ(form->Txt.Indice(), -1);
}

TEST_F(WidgetsPorNombre, LaVentanaSigueALaMatrizQueCreceYMengua) {
  form->Show();
  (void)p.ventanas.Tomar();
  form->DivSel.Anadir(*form, "DivSel", "", services::Diseno{});
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Anadido DivSel(1)"));
  form->DivSel.QuitarUltimo();
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Quitado DivSel(1)"));
  EXPECT_EQ(form->Buscar("DivSel(1)"), nullptr);
  EXPECT_THROW(form->DivSel.QuitarUltimo(), ErrorEjecucion) << "el diseñado se queda";
}

TEST_F(WidgetsPorNombre, UnElementoQueLaMatrizNoTieneEsElError381) {
  for (const int indice : {-1, 1}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { form->DivSel(indice); }), 381) << indice;
  }
}

}  // namespace
