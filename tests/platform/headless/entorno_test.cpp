#include "headless/entorno.h"

#include <gtest/gtest.h>

#include "apoyo/errores.h"

#include <string>
#include <vector>

#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "headless/selector_conceptos.h"
#include "services/utiles.h"

using headless::Entorno;
using services::ErrorEjecucion;
using services::Ref;

namespace {

class Pantalla : public services::Form {
 public:
  Pantalla(services::Escritorio& escritorio, std::string nombre)
      : Form(escritorio, std::move(nombre), 1000, 1000) {}
  void Form_Resize() override { sucesos.push_back("resize"); }
  void Form_Paint() override {
    sucesos.push_back("paint");
    if (falla) throw ErrorEjecucion(13, "no se pinta");
  }
  services::TextBox TxtBusco{*this, "TxtBusco", {.TabIndex = 0}};
  bool falla = false;
  std::vector<std::string> sucesos;

 protected:
  void Form_Load() override { sucesos.push_back("load"); }
};

class UnEntorno : public testing::Test {
 protected:
  std::shared_ptr<Entorno> entorno = Entorno::Crear();
  services::Plataforma plataforma = entorno->Plataforma();
  services::Escritorio escritorio{plataforma};
  Ref<Pantalla> pantalla = services::Crear<Pantalla>(escritorio, "FrmUna");
};

TEST_F(UnEntorno, LaPrimeraVezSePintaYLasDemasNo) {
  pantalla->Show();
  pantalla->Hide();
  pantalla->Show();
  EXPECT_EQ(pantalla->sucesos, (std::vector<std::string>{"load", "resize", "paint"}));
}

TEST_F(UnEntorno, UnErrorAlPintarEsDeNadie) {
  std::vector<std::int32_t> errores;
  entorno->AlFallar = [&](const ErrorEjecucion& fallo) { errores.push_back(fallo.Numero()); };
  pantalla->falla = true;
  EXPECT_NO_THROW(pantalla->Show());
  EXPECT_EQ(errores, std::vector<std::int32_t>{13});
  EXPECT_TRUE(pantalla->Visible());
}

TEST_F(UnEntorno, LasPantallasCargadasSeEncuentranPorSuNombre) {
  EXPECT_EQ(entorno->Buscar("FrmUna"), nullptr);
  pantalla->Show();
  EXPECT_EQ(entorno->Buscar("FrmUna"), pantalla.get());
  EXPECT_EQ(entorno->Buscar("FrmOtra"), nullptr);
  pantalla->Unload();
  EXPECT_EQ(entorno->Buscar("FrmUna"), nullptr);
}

TEST_F(UnEntorno, LaEsperaModalVuelveAlOcultarse) {
  pantalla->Show();
  auto modal = services::Crear<Pantalla>(escritorio, "FrmModal");
  bool esperada = false;
  entorno->AlEsperarModal = [&](services::Form& form) {
    esperada = true;
    EXPECT_TRUE(entorno->AlAlcance(form));
    EXPECT_FALSE(entorno->AlAlcance(*pantalla));
    form.Hide();
  };
  escritorio.Evento([&] { modal->ShowModal(); });
  EXPECT_TRUE(esperada);
  EXPECT_FALSE(modal->Visible());
  EXPECT_TRUE(entorno->AlAlcance(*pantalla));
}

TEST_F(UnEntorno, LaPantallaDescargadaEnSuEsperaViveHastaElFin) {
  auto modal = services::Crear<Pantalla>(escritorio, "FrmModal");
  Pantalla* desnuda = modal.get();
  entorno->AlEsperarModal = [&](services::Form& form) {
    escritorio.Evento([&] {
      form.Unload();
      modal = nullptr;
    });
    EXPECT_FALSE(form.Visible());
  };
  escritorio.Evento([&] { desnuda->ShowModal(); });
  EXPECT_EQ(entorno->Buscar("FrmModal"), nullptr);
}

TEST_F(UnEntorno, NadieEnUnaModalLaOculta) {
  escritorio.Evento([&] { pantalla->ShowModal(); });
  EXPECT_FALSE(pantalla->Visible());
}

TEST_F(UnEntorno, ElSelectorEscribeLoElegidoUnaSolaVez) {
  pantalla->Show();
  services::Ref<services::IDatosClase> datos;
  Ref<services::Form> form(pantalla.get());
  entorno->Concepto = "430";
  headless::SelectorHeadless selector(entorno);
  selector.Buscar(datos, form, "TesvaraGastos", "Codigo", "4", "Modal", true);
  EXPECT_EQ(pantalla->TxtBusco.Text, "430");
  pantalla->TxtBusco.Text = "";
  selector.Buscar(datos, form, "TesvaraGastos", "Codigo", "4", "Modal", true);
  EXPECT_EQ(pantalla->TxtBusco.Text, "");
}

TEST_F(UnEntorno, ElUltimoInformeSustituyeAlAnterior) {
  EXPECT_EQ(entorno->UltimoInforme(), nullptr);
  const services::TrabajoDeImpresion trabajo{.Impresora = "Una"};
  EXPECT_EQ(apoyo::NumeroDeError([&] { return plataforma.AbrirImpresora(trabajo); }),
            services::error::ErrorDeImpresora);
  entorno->Printers = {"Una"};
  plataforma.AbrirImpresora(trabajo)->Print("viejo", true);
  plataforma.AbrirImpresora(trabajo)->Print("nuevo", true);
  ASSERT_NE(entorno->UltimoInforme(), nullptr);
  ASSERT_EQ(entorno->UltimoInforme()->Trazos.size(), 1U);
  EXPECT_EQ(entorno->UltimoInforme()->Trazos.front().Trazo.Texto, "nuevo");
  EXPECT_EQ(entorno->UltimoTrabajo->Impresora, "Una");
}

TEST_F(UnEntorno, LasHojasDeLaVistaPreviaSonUnInforme) {
  const auto primera = plataforma.CrearHoja(1);
  primera->Print("una", true);
  const auto segunda = plataforma.CrearHoja(2);
  segunda->Print("otra", true);
  segunda->Cls();
  segunda->Print("y otra", true);
  const auto& trazos = entorno->UltimoInforme()->Trazos;
  ASSERT_EQ(trazos.size(), 2U);
  EXPECT_EQ(trazos[0].Pagina, 1);
  EXPECT_EQ(trazos[1].Pagina, 2);
  EXPECT_EQ(trazos[1].Trazo.Texto, "y otra");
  plataforma.CrearHoja(1);
  EXPECT_TRUE(entorno->UltimoInforme()->Trazos.empty());
}

TEST_F(UnEntorno, ElRelojAndaHastaQueSePara) {
  const services::FechaHora antes = plataforma.Ahora();
  EXPECT_GT(services::Descomponer(antes).Anio, 2000);
  entorno->PararReloj(services::HacerFecha(2005, 3, 15, 10, 0, 0));
  EXPECT_EQ(plataforma.Ahora(), services::HacerFecha(2005, 3, 15, 10, 0, 0));
}

TEST_F(UnEntorno, LosAvisosSeContestanDeLaCola) {
  entorno->Mensajes.Responder(services::mensaje::No);
  const auto aviso = plataforma.CrearAviso();
  EXPECT_EQ(aviso->Mostrar("¿Seguro?", services::mensaje::SiNo, "Atención"), services::mensaje::No);
  ASSERT_EQ(entorno->Mensajes.Mostrados().size(), 1U);
  EXPECT_EQ(entorno->Mensajes.Mostrados()[0].Texto, "¿Seguro?");
}

TEST_F(UnEntorno, ElRegistroGuardaYQuitaClases) {
  const services::ClaseRegistrada clase{services::IClassTesvara::CLSID, "Tesvara.ClassTesvara"};
  EXPECT_EQ(plataforma.Registrar(clase), services::hr::Bien);
  ASSERT_EQ(entorno->Registradas().size(), 1U);
  EXPECT_EQ(plataforma.Anular(clase), services::hr::Bien);
  EXPECT_TRUE(entorno->Registradas().empty());
}

}  // namespace
