#include "apoyo/pantalla_de_prueba.h"

// A window that has to ask the user first.

namespace {

using services::Gesto;
using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;
namespace tecla = services::tecla;

class Consentimiento : public apoyo::ConPantalla {
 protected:
  Consentimiento() {
    p.consentimiento = [this](services::Widget& widget, Gesto gesto) {
      pedidos.push_back((gesto == Gesto::Pulsar ? "pulsar " : "doble ") + widget.Nombre());
      return consiente;
    };
  }
  std::vector<std::string> Pedidos() { return std::exchange(pedidos, {}); }

  bool consiente = false;
  std::vector<std::string> pedidos;
};

TEST_F(Consentimiento, SinElNoPasaNada) {
  PonerFoco(f.TxtA);
  entrada::Pulsar(f.Chk);
  entrada::Pulsar(f.OptDos);
  entrada::Pulsar(f.Btn);
  EXPECT_THAT(Pedidos(), ElementsAre("pulsar Chk", "pulsar OptDos", "pulsar Btn"));
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_FALSE(f.Chk.Value());
  EXPECT_FALSE(f.OptDos.Value());
  EXPECT_EQ(Foco(), &f.TxtA);
}

TEST_F(Consentimiento, LasTeclasQuePulsanTambienLoPiden) {
  PonerFoco(f.Btn);
  entrada::Tecla(f.Btn, tecla::Intro);
  entrada::Tecla(f.Btn, tecla::Espacio);
  EXPECT_THAT(Pedidos(), ElementsAre("pulsar Btn", "pulsar Btn"));
  PonerFoco(f.OptUno);
  entrada::Tecla(f.OptUno, tecla::Abajo);
  EXPECT_THAT(Pedidos(), ElementsAre("pulsar OptDos"));
  EXPECT_FALSE(f.OptDos.Value());
  EXPECT_EQ(Foco(), &f.OptUno);
}

TEST_F(Consentimiento, EscapeLoPideDelBotonQueCancela) {
  f.BtnCancelar.Cancela = true;
  PonerFoco(f.TxtA);
  entrada::Tecla(f.TxtA, tecla::Escape);
  entrada::Cancelar(f);
  EXPECT_THAT(Pedidos(), ElementsAre("pulsar BtnCancelar", "pulsar BtnCancelar"));
  bool pulsado = false;
  f.BtnCancelar.Click = [&] { pulsado = true; };
  entrada::Cancelar(f);
  EXPECT_FALSE(pulsado);
  consiente = true;
  entrada::Cancelar(f);
  EXPECT_TRUE(pulsado);
}

TEST_F(Consentimiento, DeUnaCeldaSoloElDobleClicLoPide) {
  int dobles = 0;
  f.Msf.DblClick = [&] { ++dobles; };
  entrada::PulsarCelda(f.Msf, 2, 1);
  EXPECT_THAT(Pedidos(), IsEmpty());
  entrada::DoblePulsarCelda(f.Msf, 2, 1);
  entrada::SegundaPulsacion(f.Msf);
  entrada::Tecla(f.Msf, tecla::Intro);
  entrada::Escribir(f.Msf, U'5');
  EXPECT_THAT(Pedidos(), ElementsAre("doble Msf", "doble Msf", "doble Msf", "doble Msf"));
  EXPECT_EQ(dobles, 0);
  EXPECT_EQ(f.Msf.Row(), 2) << "el clic que lo empieza ya ha sido";
  consiente = true;
  entrada::SegundaPulsacion(f.Msf);
  EXPECT_EQ(dobles, 1);
}

TEST_F(Consentimiento, LoQueNoSeAlcanzaNiSePregunta) {
  f.Chk.Enabled = false;
  entrada::Pulsar(f.Chk);
  EXPECT_THAT(Pedidos(), IsEmpty());
}

}  // namespace
