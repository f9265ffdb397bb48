#include "sorvex/teclas.h"

#include <gtest/gtest.h>

#include <string>

#include "apoyo/plataforma_de_prueba.h"
#include "forms/entrada.h"

namespace {

using services::TextBox;
namespace entrada = services::entrada;

class Pantalla final : public services::Form {
 public:
  explicit Pantalla(services::Escritorio& e) : Form(e, "Pantalla", 1000, 1000) {}
  TextBox TxtFecha{*this, "TxtFecha", {.TabIndex = 0}};
  TextBox TxtImporte{*this, "TxtImporte", {.TabIndex = 1}};
  TextBox TxtEntero{*this, "TxtEntero", {.TabIndex = 2}};
};

class Teclas : public testing::Test {
 protected:
  Teclas() {
    form->Show();
    f.TxtFecha.KeyPress = [this](int& t) { t = sorvex::TeclaFecha(f.TxtFecha, t); };
    f.TxtImporte.KeyPress = [this](int& t) { t = sorvex::TeclaImporte(f.TxtImporte, t, false); };
    f.TxtEntero.KeyPress = [this](int& t) { t = sorvex::TeclaImporte(f.TxtEntero, t, true); };
  }

  /// Types key by key into what the box holds, at the caret.
  static std::string Teclear(TextBox& caja, const std::string& teclas) {
    caja.SetFocus();
    for (const char t : teclas) {
      entrada::Escribir(caja, static_cast<char32_t>(static_cast<unsigned char>(t)));
    }
    return caja.Text;
  }
  static void Poner(TextBox& caja, const std::string& texto, int desde, int cuantos) {
    caja.SetFocus();
    caja.Text = texto;
    entrada::Seleccionar(caja, desde, cuantos);
  }

  apoyo::PlataformaDePrueba p;
  services::Ref<Pantalla> form = services::Crear<Pantalla>(p.escritorio);
  Pantalla& f = *form;
};

TEST_F(Teclas, BorrarIntroYEscapePasanEnTodosLosCampos) {
  for (const int t : {8, 13, 27}) {
    EXPECT_EQ(sorvex::TeclaFecha(f.TxtFecha, t), t);
    EXPECT_EQ(sorvex::TeclaImporte(f.TxtImporte, t, false), t);
    EXPECT_EQ(sorvex::TeclaImporte(f.TxtEntero, t, true), t);
  }
}

TEST_F(Teclas, CadaCampoTomaSoloSusCaracteres) {
  for (int t = 1; t < 0x300; ++t) {
    if (t == 8 || t == 13 || t == 27) continue;
    const bool cifra = t >= '0' && t <= '9';
    EXPECT_EQ(sorvex::TeclaFecha(f.TxtFecha, t), cifra || t == '/' ? t : 0) << t;
    const int importe = t == '.' ? ',' : t;
    EXPECT_EQ(sorvex::TeclaImporte(f.TxtImporte, t, false),
              cifra || t == ',' || t == '.' || t == '-' ? importe : 0)
        << t;
    EXPECT_EQ(sorvex::TeclaImporte(f.TxtEntero, t, true), cifra || t == ',' ? t : 0) << t;
  }
}

TEST_F(Teclas, LasCifrasDeUnaFechaSeTecleanSinBarras) {
  EXPECT_EQ(Teclear(f.TxtFecha, "15032005"), "15/03/2005");
}

TEST_F(Teclas, UnaFechaConSusBarrasQuedaComoSeTeclea) {
  EXPECT_EQ(Teclear(f.TxtFecha, "15/03/2005"), "15/03/2005");
}

TEST_F(Teclas, UnDiaDeUnaCifraLlevaSuBarraTecleada) {
  EXPECT_EQ(Teclear(f.TxtFecha, "5/0305"), "5/03/05");
}

TEST_F(Teclas, ElAnioNoLlevaBarraDetras) {
  Poner(f.TxtFecha, "15/03/20", 8, 0);
  EXPECT_EQ(Teclear(f.TxtFecha, "05"), "15/03/2005");
}

TEST_F(Teclas, TrasBorrarLaBarraLaSiguienteCifraLaVuelveAPoner) {
  Poner(f.TxtFecha, "15/", 3, 0);
  entrada::Tecla(f.TxtFecha, services::tecla::Borrar);
  EXPECT_EQ(Teclear(f.TxtFecha, "0"), "15/0");
}

TEST_F(Teclas, UnaCifraEnMedioNoPoneBarra) {
  Poner(f.TxtFecha, "15", 0, 0);
  EXPECT_EQ(Teclear(f.TxtFecha, "1"), "115");
}

TEST_F(Teclas, UnaCifraSobreLoSeleccionadoNoPoneBarra) {
  Poner(f.TxtFecha, "15", 0, 2);
  EXPECT_EQ(Teclear(f.TxtFecha, "2"), "2");
}

TEST_F(Teclas, LaBarraPuestaCorreElEventoDeCambio) {
  Poner(f.TxtFecha, "15", 2, 0);
  std::string cambios;
  f.TxtFecha.Change = [&] { cambios += f.TxtFecha.Text() + ";"; };
  Teclear(f.TxtFecha, "0");
  EXPECT_EQ(cambios, "15/;15/0;");
}

TEST_F(Teclas, UnaTeclaRechazadaNoCambiaElTexto) {
  EXPECT_EQ(Teclear(f.TxtFecha, "15a"), "15");
  EXPECT_EQ(Teclear(f.TxtImporte, "1x2"), "12");
  EXPECT_EQ(Teclear(f.TxtEntero, "1-2."), "12");
}

TEST_F(Teclas, ElPuntoDelTecladoEsLaComaDecimal) {
  EXPECT_EQ(Teclear(f.TxtImporte, "12.5"), "12,5");
}

TEST_F(Teclas, UnImporteSeTecleaConSusPuntosDeMiles) {
  EXPECT_EQ(Teclear(f.TxtImporte, "1.234,50"), "1.234,50");
  f.TxtImporte.Text = "";
  EXPECT_EQ(Teclear(f.TxtImporte, "1.234.567.89"), "1.234.567,89");
}

TEST_F(Teclas, UnaSegundaComaQueNoVaTrasTresCifrasSeTraga) {
  for (const auto& [teclas, queda] : std::vector<std::pair<std::string, std::string>>{
           {"1.2.3", "1,23"}, {"1,,5", "1,5"}, {"1,2345,6", "1,23456"}, {",", ","}, {",,", ","}}) {
    f.TxtImporte.Text = "";
    EXPECT_EQ(Teclear(f.TxtImporte, teclas), queda);
  }
}

TEST_F(Teclas, UnaComaDelanteDeOtraSeTraga) {
  Poner(f.TxtImporte, "12,345", 1, 0);
  EXPECT_EQ(Teclear(f.TxtImporte, ","), "12,345");
  Poner(f.TxtImporte, "1.234", 1, 0);
  EXPECT_EQ(Teclear(f.TxtImporte, ","), "1.234") << "ni delante de un punto de miles";
  Poner(f.TxtImporte, "1,234", 5, 0);
  entrada::Seleccionar(f.TxtImporte, 2, 0);
  EXPECT_EQ(Teclear(f.TxtImporte, "."), "1,234");
}

TEST_F(Teclas, UnaComaTomaElLugarDeLoSeleccionado) {
  Poner(f.TxtImporte, "1,5", 0, 3);
  EXPECT_EQ(Teclear(f.TxtImporte, ","), ",");
  Poner(f.TxtImporte, "1,2347", 5, 1);
  EXPECT_EQ(Teclear(f.TxtImporte, ","), "1.234,");
}

TEST_F(Teclas, UnCampoDeEnterosTieneUnaSolaComa) {
  EXPECT_EQ(Teclear(f.TxtEntero, "7,5,"), "7,5");
  f.TxtEntero.Text = "";
  EXPECT_EQ(Teclear(f.TxtEntero, "1,234,5"), "1,2345");
}

TEST_F(Teclas, ElSignoVaSoloDelante) {
  EXPECT_EQ(Teclear(f.TxtImporte, "-5-"), "-5");
  Poner(f.TxtImporte, "5", 0, 0);
  EXPECT_EQ(Teclear(f.TxtImporte, "-"), "-5");
}

TEST_F(Teclas, DosSignosNoCaben) {
  Poner(f.TxtImporte, "-5", 0, 0);
  EXPECT_EQ(Teclear(f.TxtImporte, "-"), "-5");
}

TEST_F(Teclas, ElSignoTomaElLugarDeLoSeleccionado) {
  Poner(f.TxtImporte, "-5", 0, 2);
  EXPECT_EQ(Teclear(f.TxtImporte, "-"), "-");
  Poner(f.TxtImporte, "125", 1, 2);
  EXPECT_EQ(Teclear(f.TxtImporte, "-"), "125");
}

}  // namespace
