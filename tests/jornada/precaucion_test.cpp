#include <gtest/gtest.h>

#include <set>
#include <string>

#include "forms/precaucion.h"
#include "jornada/partida.h"

// What the main screen has its window ask before it lets a gesture through, and how many payments
// it counts.

namespace {

using services::Gesto;

const std::string kUno = "Hay 1 pago sin grabar, que se perdería. ¿Grabarlo antes?";
const std::string kDos = "Hay 2 pagos sin grabar, que se perderían. ¿Grabarlos antes?";

/// The first row of March is a forecast; 2 and 5 are receipts, 10 is a filler.
class Precaucion : public testing::Test {
 protected:
  Precaucion() { Jugar(jornada::kEmpresa + "cargar\n"); }

  void Jugar(const std::string& texto) {
    const auto jugada = partida.Jugar(texto);
    EXPECT_EQ(jugada.Estado, 0) << jugada.Errores;
    EXPECT_EQ(jugada.Salida, "");
  }
  [[nodiscard]] services::Precaucion& De() { return *partida.Pantalla().Precaucion(); }
  [[nodiscard]] std::string AntesDe(const char* nombre, Gesto gesto = Gesto::Pulsar) {
    return De().PreguntaAntesDe(*partida.Pantalla().Buscar(nombre), gesto);
  }
  [[nodiscard]] int PagosSinGrabar() { return partida.Pantalla().Edicion.PagosSinGrabar(); }
  /// The widgets before whose click something is asked, and `MSFPagos` before a double click.
  [[nodiscard]] std::set<std::string> Preguntan(const std::string& pregunta) {
    std::set<std::string> nombres;
    for (const services::Widget* widget : partida.Pantalla().Widgets()) {
      for (const Gesto gesto : {Gesto::Pulsar, Gesto::DoblePulsar}) {
        const std::string dicho = De().PreguntaAntesDe(*widget, gesto);
        if (dicho.empty()) continue;
        EXPECT_EQ(dicho, pregunta) << widget->NombreCompleto();
        nombres.insert(widget->NombreCompleto());
      }
    }
    return nombres;
  }

  jornada::Partida partida;
  const std::set<std::string> rehacen = {"OptFecha",   "OptConcepto", "ChkPrevisiones",
                                         "ChkPagados", "BotonNuevo",  "BotonModificar",
                                         "BtnAutCaja"};
  const std::set<std::string> conBorrar = Con("BotonBorrar");

  [[nodiscard]] std::set<std::string> Con(const char* otro) const {
    std::set<std::string> todos = rehacen;
    todos.insert(otro);
    return todos;
  }
};

TEST_F(Precaucion, SinPagosNoSePreguntaNada) {
  EXPECT_EQ(Preguntan(""), std::set<std::string>());
  Jugar("celda MSFPagos 2 3\n");
  EXPECT_EQ(Preguntan(""), std::set<std::string>());
  EXPECT_EQ(PagosSinGrabar(), 0);
}

TEST_F(Precaucion, ConPagosSePreguntaAntesDeLoQueRehaceLaLista) {
  Jugar("celda MSFPagos 2 5\n");
  EXPECT_EQ(Preguntan(kUno), conBorrar);
  Jugar("celda MSFPagos 5 5\n");
  EXPECT_EQ(Preguntan(kDos), conBorrar);
  EXPECT_EQ(PagosSinGrabar(), 2);
}

TEST_F(Precaucion, SobreUnRellenoNoHayNadaQueBorrar) {
  Jugar("celda MSFPagos 2 5\ncelda MSFPagos 10 1\n");
  EXPECT_EQ(Preguntan(kUno), rehacen);
}

TEST_F(Precaucion, UnDobleClicQueAbreElPanelSePregunta) {
  Jugar("celda MSFPagos 2 5\ncelda MSFPagos 1 4\n");
  EXPECT_EQ(AntesDe("MSFPagos", Gesto::DoblePulsar), kUno);
  EXPECT_EQ(AntesDe("MSFPagos"), "") << "un clic no abre nada";
  Jugar("celda MSFPagos 1 3\n");
  EXPECT_EQ(AntesDe("MSFPagos", Gesto::DoblePulsar), "") << "ni el doble fuera de lo pagado";
  Jugar("celda MSFPagos 5 4\n");
  EXPECT_EQ(AntesDe("MSFPagos", Gesto::DoblePulsar), "") << "en un recibo abre el editor";
}

TEST_F(Precaucion, ConElPanelAbiertoNoSePregunta) {
  Jugar("celda MSFPagos 2 5\npulsar BotonNuevo\n");
  EXPECT_EQ(Preguntan(""), std::set<std::string>());
  EXPECT_EQ(PagosSinGrabar(), 1) << "pero siguen sin grabar";
  Jugar("pulsar BtnCancelar\n");
  EXPECT_EQ(Preguntan(kUno), conBorrar);
}

TEST_F(Precaucion, ElEditorAbiertoCuentaComoSiSeCerrara) {
  Jugar("doble MSFPagos 5 4\n");
  EXPECT_EQ(PagosSinGrabar(), 0) << "abierto sin más";
  Jugar("anadir \"2\"\n");
  EXPECT_EQ(PagosSinGrabar(), 1);
  EXPECT_EQ(AntesDe("ChkPagados"), kUno);
  Jugar("tecla Borrar\n");
  EXPECT_EQ(PagosSinGrabar(), 0);
  Jugar("anadir \"0\"\n");
  EXPECT_EQ(PagosSinGrabar(), 0) << "un cero donde no había nada";
  Jugar("anadir \",5\"\ntecla Escape\n");
  EXPECT_EQ(PagosSinGrabar(), 0) << "lo que se tecleó se ha dejado";
}

TEST_F(Precaucion, SobreUnPagoElEditorLoCambiaOLoQuita) {
  Jugar("celda MSFPagos 5 5\ndoble MSFPagos 5 4\n");
  EXPECT_EQ(PagosSinGrabar(), 1);
  Jugar("teclear TxtMsf \"3\"\n");
  EXPECT_EQ(PagosSinGrabar(), 1);
  Jugar("teclear TxtMsf \"\"\n");
  EXPECT_EQ(PagosSinGrabar(), 0);
}

TEST_F(Precaucion, LoQueSeGrabaSeCancelaODevuelveDejaDeContar) {
  for (const char* fin :
       {"pulsar BotonAceptar\ncelda MSFPagos 2 5\npulsar BotonAceptar\n", "pulsar BotonCancelar\n",
        "celda MSFPagos 2 5\n", "pulsar ChkPagados\npulsar ChkPagados\n"}) {
    Jugar("celda MSFPagos 2 5\n");
    EXPECT_EQ(PagosSinGrabar(), 1) << fin;
    Jugar(fin);
    EXPECT_EQ(PagosSinGrabar(), 0) << fin;
  }
}

TEST_F(Precaucion, BorrarUnaLineaConservaLosPagosDeLasDemas) {
  Jugar(
      "responder no\ncelda MSFPagos 2 5\ncelda MSFPagos 9 5\ncelda MSFPagos 5 3\n"
      "pulsar BotonBorrar\n");
  EXPECT_EQ(PagosSinGrabar(), 2);
  Jugar("celda MSFPagos 8 5\n");
  EXPECT_EQ(PagosSinGrabar(), 1) << "la que era la 9";
}

TEST_F(Precaucion, UnaFechaPorDejarPreguntaPorSuCuenta) {
  EXPECT_FALSE(De().PreguntaAlDejar());
  Jugar("foco TxtFPrevisionD\n");
  EXPECT_FALSE(De().PreguntaAlDejar());
  Jugar("teclear TxtFPrevisionD \"1/2/2005\"\n");
  EXPECT_TRUE(De().PreguntaAlDejar());
}

TEST_F(Precaucion, SiGrabaYVuelveALaLinea) {
  Jugar("celda MSFPagos 2 5\ncelda MSFPagos 9 3\n");
  auto& pantalla = partida.Pantalla();
  EXPECT_TRUE(De().Prevenir(pantalla.Borrado.BotonBorrar, Gesto::Pulsar));
  EXPECT_EQ(PagosSinGrabar(), 0);
  const auto& lista = pantalla.Rejilla.MSFPagos;
  EXPECT_EQ(lista.Row(), 9);
  EXPECT_EQ(lista.Col(), 3);
  EXPECT_EQ(lista.TextMatrix(9, 2), "F4");
}

TEST_F(Precaucion, UnPagoRechazadoNoSigue) {
  Jugar("doble MSFPagos 5 4\nteclear TxtMsf \"999\"\ncelda MSFPagos 2 3\n");
  EXPECT_FALSE(De().Prevenir(partida.Pantalla().Lista.ChkPagados, Gesto::Pulsar));
  EXPECT_EQ(PagosSinGrabar(), 1);
  Jugar("espera aviso \"El Importe Pagado no puede ser mayor que el Importe del Recibo\"\n");
}

TEST_F(Precaucion, LaLineaQueYaNoEstaSeDice) {
  // With the paid ones left out only what is paid in part shows, and this one no longer is.
  Jugar("pulsar ChkPagados\ncelda MSFPagos 1 5\n");
  EXPECT_FALSE(De().Prevenir(partida.Pantalla().BotonModificar, Gesto::Pulsar));
  Jugar(
      "espera aviso \"Se ha grabado, pero la línea elegida ya no está en la lista y no se ha "
      "hecho nada con ella.\\nPuede verla con \\\"Ver Pagados\\\".\"\n");
}

}  // namespace
