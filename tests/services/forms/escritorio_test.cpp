#include "forms/escritorio.h"

#include <new>

#include "apoyo/pantalla_de_prueba.h"
#include "valores/error.h"

namespace {

using services::ErrorEjecucion;
using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;

class Escritorio : public apoyo::ConPantalla {
 protected:
  Escritorio() {
    e.AlTerminarEvento = [this] { sucesos("fin"); };
    e.AlFallarEvento = [this] { sucesos("deshecho"); };
  }
  [[nodiscard]] std::vector<std::int32_t> Errores() const {
    std::vector<std::int32_t> numeros;
    for (const ErrorEjecucion& fallo : p.errores) numeros.push_back(fallo.Numero());
    return numeros;
  }
  [[noreturn]] static void Fallar(std::int32_t numero) { throw ErrorEjecucion(numero, "fallo"); }

  services::Escritorio& e = p.escritorio;
};

TEST_F(Escritorio, AlTerminarEventoCorreUnaVezPorEvento) {
  e.Evento([this] { sucesos("uno"); });
  e.Evento([this] { sucesos("dos"); });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("uno", "fin", "dos", "fin"));
}

TEST_F(Escritorio, UnEventoDentroDeOtroEsParteDeEl) {
  e.Evento([this] {
    e.Evento([this] { sucesos("dentro"); });
    e.Operacion([this] { sucesos("operación"); });
    sucesos("fuera");
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("dentro", "operación", "fuera", "fin"));
}

TEST_F(Escritorio, UnaAsignacionDeCodigoNoEsUnEvento) {
  f.TxtA.Text = "x";
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.Change"));
}

TEST_F(Escritorio, CadaCosaQueHaceElUsuarioEsUnEvento) {
  PonerFoco(f.TxtA);
  entrada::Escribir(f.TxtA, U'5');
  entrada::Tabular(f, false);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("TxtA.Change", "fin", "TxtA.LostFocus", "TxtB.GotFocus", "fin"));
}

TEST_F(Escritorio, ElErrorDeUnEventoVaALaPlataforma) {
  e.Evento([] { Fallar(13); });
  EXPECT_THAT(Errores(), ElementsAre(13));
  EXPECT_EQ(p.errores[0].Descripcion(), "fallo");
}

TEST_F(Escritorio, UnEventoQueAcabaEnErrorSeDeshace) {
  e.Evento([] { Fallar(13); });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("deshecho"));
  e.Evento([] {});
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("fin"));
}

TEST_F(Escritorio, ElErrorDeUnEventoDeDentroAcabaConElDeFuera) {
  e.Evento([this] {
    e.Evento([] { Fallar(13); });
    sucesos("no llega");
  });
  EXPECT_THAT(Errores(), ElementsAre(13));
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("deshecho"));
}

TEST_F(Escritorio, LoHechoAntesDeUnaEsperaNoSeDeshace) {
  e.Evento([this] {
    e.Esperar([this] { sucesos("espera"); });
    Fallar(13);
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("fin", "espera", "deshecho"));
}

TEST_F(Escritorio, ElManejadorPuedeQuedarseConElErrorDeDentro) {
  e.Evento([this] {
    EXPECT_THROW(e.Evento([] { Fallar(13); }), ErrorEjecucion);
    sucesos("sigue");
  });
  EXPECT_THAT(Errores(), IsEmpty());
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("sigue", "fin"));
}

TEST_F(Escritorio, OtraExcepcionSeDiceComoErrorInterno) {
  e.Evento([] { throw std::bad_alloc(); });
  EXPECT_THAT(Errores(), ElementsAre(services::error::Interno));
}

TEST_F(Escritorio, OperacionDejaSalirElErrorYSeDeshace) {
  EXPECT_THROW(e.Operacion([] { Fallar(13); }), ErrorEjecucion);
  EXPECT_THAT(Errores(), IsEmpty());
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("deshecho"));
}

TEST_F(Escritorio, ElErrorAlTerminarVaPorDondeIriaElDelEvento) {
  e.AlTerminarEvento = [] { Fallar(services::error::FalloDeConexion); };
  e.Evento([] {});
  EXPECT_THAT(Errores(), ElementsAre(services::error::FalloDeConexion));
  EXPECT_THROW(e.Operacion([] {}), ErrorEjecucion);
  EXPECT_EQ(p.errores.size(), 1U);
}

TEST_F(Escritorio, SiFallanElEventoYSuFinPorCosasDistintasSeDicenLasDos) {
  e.AlFallarEvento = [] { throw ErrorEjecucion(services::error::FalloDeConexion, "sin conexión"); };
  e.Evento([] { Fallar(13); });
  EXPECT_THAT(Errores(), ElementsAre(services::error::FalloDeConexion, 13));
}

TEST_F(Escritorio, ElMismoFalloEnElEventoYEnSuFinSeDiceUnaVez) {
  e.AlFallarEvento = [] { Fallar(13); };
  e.Evento([] { Fallar(13); });
  EXPECT_THAT(Errores(), ElementsAre(13));
}

TEST_F(Escritorio, TambienSiNoEsUnErrorDelSistema) {
  e.AlFallarEvento = [] { throw std::bad_alloc(); };
  e.Evento([] { throw std::bad_alloc(); });
  EXPECT_THAT(Errores(), ElementsAre(services::error::Interno));
}

TEST_F(Escritorio, LasVentanasSabenDelFinAunqueFalle) {
  e.AlTerminarEvento = [] { Fallar(1); };
  (void)p.ventanas.Tomar();
  e.Evento([] {});
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("Pantalla: FinDeEvento"));
}

TEST_F(Escritorio, LasVentanasSabenDelFinDespuesDeAlTerminarEvento) {
  (void)p.ventanas.Tomar();
  e.AlTerminarEvento = [this] { p.ventanas("fin"); };
  e.Evento([] {});
  EXPECT_THAT(p.ventanas.Tomar(), ElementsAre("fin", "Pantalla: FinDeEvento"));
}

TEST_F(Escritorio, AntesDeUnaEsperaTerminaLoHechoHastaEntonces) {
  e.Evento([this] {
    sucesos("antes");
    e.Esperar([this] { sucesos("espera"); });
    sucesos("después");
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("antes", "fin", "espera", "después", "fin"));
}

TEST_F(Escritorio, LoQueElUsuarioHaceEnUnaEsperaSonEventosSuyos) {
  e.Evento([this] {
    e.Esperar([this] {
      e.Evento([this] { sucesos("uno"); });
      e.Evento([] { Fallar(13); });
      sucesos("sigue esperando");
    });
  });
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("fin", "uno", "fin", "deshecho", "sigue esperando", "fin"));
  EXPECT_THAT(Errores(), ElementsAre(13));
}

TEST_F(Escritorio, TrasUnaEsperaElEventoSigueSiendoElMismo) {
  e.Evento([this] {
    e.Esperar([] {});
    e.Evento([this] { sucesos("dentro"); });
    sucesos("fuera");
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("fin", "dentro", "fuera", "fin"));
}

TEST_F(Escritorio, ElErrorDeUnaEsperaSaleASuManejador) {
  e.Evento([this] {
    EXPECT_THROW(e.Esperar([] { Fallar(13); }), ErrorEjecucion);
    e.Evento([this] { sucesos("dentro"); });
  });
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("fin", "dentro", "fin"));
  EXPECT_THAT(Errores(), IsEmpty());
}

TEST_F(Escritorio, SiLoHechoNoSePuedeTerminarNoSeEspera) {
  e.AlTerminarEvento = [] { Fallar(services::error::FalloDeConexion); };
  e.Evento([this] {
    EXPECT_THROW(e.Esperar([this] { sucesos("espera"); }), ErrorEjecucion);
    e.AlTerminarEvento = nullptr;
  });
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_THAT(Errores(), IsEmpty());
}

TEST_F(Escritorio, LasPantallasCargadasVanEnElOrdenDeSuCarga) {
  const auto una = services::Crear<services::Form>(e, "Una", 10, 10);
  const auto otra = services::Crear<services::Form>(e, "Otra", 10, 10);
  otra->Load();
  una->Show();
  EXPECT_THAT(e.Cargados(), ElementsAre(form.get(), otra.get(), una.get()));
  otra->Unload();
  EXPECT_THAT(e.Cargados(), ElementsAre(form.get(), una.get()));
}

TEST_F(Escritorio, LaOcupacionSeDiceUnaVezYHastaElFinal) {
  {
    const services::Escritorio::Ocupacion fuera(e);
    const services::Escritorio::Ocupacion dentro(e);
    EXPECT_THAT(p.ocupaciones, ElementsAre(true));
  }
  EXPECT_THAT(p.ocupaciones, ElementsAre(true, false));
}

TEST_F(Escritorio, MientrasSePreguntaNoSeEstaOcupado) {
  e.Evento([this] {
    const services::Escritorio::Ocupacion ocupacion(e);
    e.Esperar([this] {
      EXPECT_THAT(p.ocupaciones, ElementsAre(true, false));
      const services::Escritorio::Ocupacion otra(e);
    });
  });
  EXPECT_THAT(p.ocupaciones, ElementsAre(true, false, true, false, true, false));
}

}  // namespace
