#include "apoyo/pantalla_contada.h"

#include "apoyo/errores.h"

// How a screen loads, shows, hides and goes.

namespace {

using services::Crear;
using services::ErrorEjecucion;
using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;

using apoyo::PantallaContada;

class Formulario : public apoyo::ConPantallaContada {};

TEST_F(Formulario, ShowCargaUnaVezYTraeALaVista) {
  form->Show();
  form->Show();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load"));
  EXPECT_TRUE(form->Cargado());
  EXPECT_TRUE(form->Visible());
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Mostrar", "Pantalla: Mostrar"));
  EXPECT_THAT(p.escritorio.Cargados(), ElementsAre(form.get()));
}

/// One that is refreshed when it comes to the front.
class PantallaQueSeRefresca final : public services::Form {
 public:
  explicit PantallaQueSeRefresca(services::Escritorio& escritorio)
      : Form(escritorio, "Refrescada", 100, 100) {}
  void Form_Activate() override { Refresh(); }
};

TEST_F(Formulario, CadaVezQueSeMuestraSeActivaYaALaVista) {
  const auto otra = Crear<PantallaQueSeRefresca>(p.escritorio);
  otra->Load();
  EXPECT_THAT(p.ventanas.Tomar(), IsEmpty());
  otra->Show();
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Refrescada: Mostrar", "Refrescada: Refrescar"));
  otra->Hide();
  otra->Show();
  EXPECT_THAT(p.ventanas.Tomar(),
              ElementsAre("Refrescada: Ocultar", "Refrescada: Mostrar", "Refrescada: Refrescar"));
}

TEST_F(Formulario, LoadCargaSinMostrar) {
  form->Load();
  form->Load();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load"));
  EXPECT_FALSE(form->Visible());
  EXPECT_THAT(p.ventanas.Tomar(), IsEmpty());
}

TEST_F(Formulario, UnaCargaQueFallaDejaElFormSinCargar) {
  form->AlCargar = [] { Fallar(); };
  EXPECT_THROW(form->Show(), ErrorEjecucion);
  EXPECT_FALSE(form->Cargado());
  EXPECT_FALSE(form->Visible());
  EXPECT_TRUE(form->Descargado());
  EXPECT_THAT(p.escritorio.Cargados(), IsEmpty());
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load"));
}

TEST_F(Formulario, UnaCargaQueFallaNoSeQuedaConElFoco) {
  form->AlCargar = [this] {
    form->Txt.SetFocus();
    Fallar();
  };
  EXPECT_THROW(form->Load(), ErrorEjecucion);
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Formulario, UnFormQueSeDescargaAlCargarNoSeMuestra) {
  form->AlCargar = [this] { form->Unload(); };
  p.espera = [](services::Form&) { FAIL() << "no hay nada que esperar"; };
  form->ShowModal();
  EXPECT_FALSE(form->Cargado());
  EXPECT_THAT(p.ventanas.Tomar(), IsEmpty());
}

TEST_F(Formulario, HideLoOcultaConTodoLoQueTiene) {
  form->Show();
  form->Txt.Text = "sin grabar";
  form->Txt.SetFocus();
  form->Txt.LostFocus = [this] { sucesos("LostFocus"); };
  (void)p.ventanas.Tomar();
  (void)sucesos.Tomar();
  form->Hide();
  form->Hide();
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Ocultar"));
  EXPECT_TRUE(form->Cargado());
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
  form->Show();
  EXPECT_EQ(form->Txt.Text, "sin grabar");
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Formulario, HideDejaElFocoDeOtraPantalla) {
  const auto otra = Crear<PantallaContada>(p.escritorio, sucesos);
  form->Show();
  otra->Show();
  form->Txt.SetFocus();
  otra->Hide();
  EXPECT_TRUE(form->Txt.TieneFoco());
}

TEST_F(Formulario, UnloadCorreSuEventoYLoRetira) {
  form->Show();
  form->Txt.SetFocus();
  (void)p.ventanas.Tomar();
  form->Unload();
  form->Unload();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load", "Form_Unload"));
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: Ocultar"));
  EXPECT_FALSE(form->Cargado());
  EXPECT_THAT(p.escritorio.Cargados(), IsEmpty());
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Formulario, UnloadDeUnFormNuncaMostradoTambienSueltaElFoco) {
  form->Load();
  form->Txt.SetFocus();
  form->Unload();
  EXPECT_EQ(p.escritorio.Foco(), nullptr);
}

TEST_F(Formulario, UnloadDeUnFormSinCargarNoHaceNada) {
  form->Unload();
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_FALSE(form->Descargado());
}

TEST_F(Formulario, SiFormUnloadFallaElFormSeQuedaComoEstaba) {
  form->Show();
  form->Txt.SetFocus();
  form->AlDescargar = [] { Fallar(); };
  EXPECT_THROW(form->Unload(), ErrorEjecucion);
  EXPECT_TRUE(form->Cargado());
  EXPECT_TRUE(form->Visible());
  EXPECT_TRUE(form->Txt.TieneFoco());
  form->AlDescargar = nullptr;
  form->Unload();
  EXPECT_FALSE(form->Cargado()) << "la próxima vez se va";
}

TEST_F(Formulario, UnSegundoUnloadMientrasCorreElPrimeroNoEsOtro) {
  form->Show();
  form->AlDescargar = [this] { form->Unload(); };
  form->Unload();
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Load", "Form_Unload"));
  EXPECT_FALSE(form->Cargado());
}

TEST_F(Formulario, UnFormDescargadoNoSeVuelveACargar) {
  form->Show();
  form->Unload();
  EXPECT_EQ(apoyo::NumeroDeError([&] { form->Show(); }), services::error::ObjetoDescargado);
}

TEST_F(Formulario, ElDescargadoDuraHastaElFinDelEvento) {
  form->Show();
  (void)sucesos.Tomar();
  PantallaContada* crudo = form.get();
  crudo->Btn.MouseUp = [this] { sucesos("MouseUp"); };
  crudo->Btn.Click = [this] {
    form->Unload();
    form = nullptr;
    sucesos("fin de Click");
  };
  entrada::Pulsar(crudo->Btn);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Unload", "fin de Click", "MouseUp", "destruida"));
}

TEST_F(Formulario, SoltarLaUltimaReferenciaDentroDeFormUnloadNoLoMataEnMedio) {
  form->Show();
  PantallaContada* crudo = form.get();
  crudo->AlDescargar = [this] { form = nullptr; };
  (void)sucesos.Tomar();
  p.escritorio.Evento([&] {
    crudo->Unload();
    sucesos("descargada");
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Form_Unload", "descargada", "destruida"));
}

TEST_F(Formulario, UnFormQueSeVaSinDescargarDejaDeContarComoCargado) {
  form->Load();
  form = nullptr;
  EXPECT_THAT(p.escritorio.Cargados(), IsEmpty());
}

}  // namespace
