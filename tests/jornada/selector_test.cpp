#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "jornada/partida.h"

// What the concept chooser is asked, and what it may hand back.

namespace {

using services::Form;
using services::Ref;

struct Peticion {
  bool ConContexto;
  std::string Formulario;
  std::string Origen;
  std::string Clase;
  std::string Texto;
  std::string Modo;
  bool Indicador;

  bool operator==(const Peticion&) const = default;
};
void PrintTo(const Peticion& p, std::ostream* salida) {
  *salida << p.Formulario << " " << p.Origen << " " << p.Clase << " \"" << p.Texto << "\" "
          << p.Modo << " " << p.Indicador << " " << p.ConContexto;
}

class FormularioAjeno final : public Form {
 public:
  explicit FormularioAjeno(services::Escritorio& escritorio) : Form(escritorio, "Otra", 100, 100) {}
};

class Selector : public testing::Test {
 protected:
  class Falso final : public services::SelectorConceptos {
   public:
    explicit Falso(Selector& prueba) : prueba_(prueba) {}
    void Buscar(Ref<services::IDatosClase>& datos, Ref<Form>& form, std::string_view origen,
                std::string_view clase, const std::string& texto, std::string_view modo,
                bool indicador) override {
      prueba_.peticiones.push_back({datos.get() != nullptr, form->Nombre(), std::string(origen),
                                    std::string(clase), texto, std::string(modo), indicador});
      if (prueba_.devuelve) form = *prueba_.devuelve;
    }

   private:
    Selector& prueba_;
  };

  Selector() {
    partida.Plataforma().CrearSelectorConceptos = [this](services::Sesion&) {
      ++creados;
      return std::make_unique<Falso>(*this);
    };
    Jugar("datos INSERT INTO ProvConceptos VALUES ('400','Luz')\ncargar\npulsar BotonNuevo\n");
  }
  std::string Jugar(const std::string& texto) {
    const auto jugada = partida.Jugar(texto);
    EXPECT_EQ(jugada.Estado, 0) << jugada.Salida << jugada.Errores;
    return jugada.Salida;
  }

  std::vector<Peticion> peticiones;
  /// What is handed back in the place of the screen; nothing leaves it.
  std::optional<Ref<Form>> devuelve;
  int creados = 0;
  jornada::Partida partida;
};

TEST_F(Selector, SeCreaUnaVezYSeLePideLoQueToca) {
  Jugar("teclear TxtConcepto \"lu\"\nfoco TxtNFra\n");
  Jugar("teclear TxtConcepto \"77\"\nfoco TxtNFra\n");
  Jugar("teclear TxtConcepto \"lu\"\npulsar CmdCon\n");
  EXPECT_EQ(creados, 1);
  const auto pedido = [](const char* clase, const char* texto) {
    return Peticion{true, "FrmTesvaraGastos", "TesvaraGastos", clase, texto, "Modal", true};
  };
  EXPECT_EQ(peticiones,
            (std::vector{pedido("Nombre", "lu"), pedido("Codigo", "77"), pedido("Codigo", "lu")}));
}

TEST_F(Selector, DevolverOtroFormularioPorElSuyoEsUnErrorYLaPantallaSigue) {
  devuelve = services::Crear<FormularioAjeno>(partida.Pantalla().Escritorio());
  EXPECT_EQ(Jugar("pulsar CmdCon\n"),
            "error -2147467262 \"El selector de conceptos ha devuelto otro formulario por "
            "FrmTesvaraGastos\"\n");
  devuelve = Ref<Form>();
  EXPECT_NE(Jugar("pulsar CmdCon\n"), "");
  devuelve.reset();
  // What the button lets pass without a look doesn't outlast its click.
  EXPECT_EQ(Jugar("teclear TxtConcepto \"400\"\nfoco TxtNFra\nespera TxtNConcepto.Text \"400\"\n"),
            "");
}

TEST_F(Selector, LasFacturasAutomaticasTienenElSuyo) {
  // In one: the screen goes with the text that opened it.
  Jugar(R"(
pulsar BtnCancelar
pulsar BtnAutCaja
pulsar FrmFraAutomaticas.OptConcepto
teclear FrmFraAutomaticas.TxtConcepto "77"
tecla Intro
teclear FrmFraAutomaticas.TxtConcepto "na"
tecla Intro
teclear FrmFraAutomaticas.TxtConcepto "Luz"
pulsar FrmFraAutomaticas.CmdCon
tecla Escape
)");
  EXPECT_EQ(creados, 1);
  const std::vector<Peticion> esperadas = {
      {true, "FrmFraAutomaticas", "FraAutomatica", "Codigo", "77", "Modal", true},
      {true, "FrmFraAutomaticas", "FraAutomatica", "Nombre", "na", "Modal", true},
      {true, "FrmFraAutomaticas", "FraAutomatica", "Codigo", "Luz", "Modal", true}};
  EXPECT_EQ(peticiones, esperadas);
}

}  // namespace
