#include "forms/entrada.h"

#include "apoyo/pantalla_de_prueba.h"

// What keys fire.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace entrada = services::entrada;
namespace tecla = services::tecla;

class Teclado : public apoyo::ConPantalla {
 protected:
  /// Waits in the text box with that text, the caret at its end.
  void Esperar(const std::string& texto) {
    f.TxtA.Text = texto;
    PonerFoco(f.TxtA);
    entrada::Seleccionar(f.TxtA, 99, 0);
    apoyo::ApuntarTeclas(f.TxtA, sucesos);
  }
};

TEST_F(Teclado, UnCaracterPasaPorKeyDownYKeyPressYEntra) {
  Esperar("1");
  entrada::Escribir(f.TxtA, U'5');
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.KeyDown 53", "TxtA.KeyPress 53", "TxtA.Change"));
  EXPECT_EQ(f.TxtA.Text, "15");
  EXPECT_EQ(f.TxtA.SelStart, 2);
}

TEST_F(Teclado, UnCaracterTomaElLugarDeLoSeleccionado) {
  Esperar("añoñ");
  entrada::Seleccionar(f.TxtA, 1, 2);
  entrada::Escribir(f.TxtA, U'ü');
  EXPECT_EQ(f.TxtA.Text, "aüñ");
  EXPECT_EQ(f.TxtA.SelStart, 2);
  EXPECT_EQ(f.TxtA.SelLength, 0);
}

TEST_F(Teclado, UnCaracterQueDejaElMismoTextoNoDisparaChange) {
  Esperar("5");
  f.TxtA.SeleccionarTodo();
  entrada::Escribir(f.TxtA, U'5');
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.KeyDown 53", "TxtA.KeyPress 53"));
  EXPECT_EQ(f.TxtA.SelStart, 1);
}

TEST_F(Teclado, LasTeclasConCaracterDanSuNumero) {
  for (const auto& [codigo, linea] : std::vector<std::pair<int, std::string>>{
           {tecla::Intro, "13"}, {tecla::Escape, "27"}, {tecla::Borrar, "8"}}) {
    Esperar("");
    entrada::Tecla(f.TxtA, codigo);
    EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.KeyDown " + linea, "TxtA.KeyPress " + linea));
  }
}

TEST_F(Teclado, LasFlechasNoTienenKeyPress) {
  Esperar("ab");
  entrada::Tecla(f.TxtA, tecla::Izquierda);
  EXPECT_THAT(sucesos.Tomar(), testing::Contains("TxtA.KeyDown 37"));
  EXPECT_EQ(f.TxtA.SelStart, 1);
}

TEST_F(Teclado, UnSignoNoSeConfundeConUnaFlecha) {
  Esperar("");
  for (const char32_t signo : {U'&', U'(', U'%', U'\'', U'.'}) entrada::Escribir(f.TxtA, signo);
  EXPECT_THAT(sucesos.Tomar(), testing::Contains("TxtA.KeyDown 255").Times(5));
  EXPECT_EQ(f.TxtA.Text, "&(%'.");
  PonerFoco(f.Msf);
  entrada::Escribir(f.Msf, U'(');
  EXPECT_EQ(f.Msf.Row, 1);
}

TEST_F(Teclado, UnaLetraTieneLaTeclaDeSuMayuscula) {
  Esperar("");
  entrada::Escribir(f.TxtA, U'z');
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.KeyDown 90", "TxtA.KeyPress 122", "TxtA.Change"));
}

TEST_F(Teclado, KeyPressCambiaElCaracter) {
  Esperar("1");
  f.TxtA.KeyPress = [](int& t) { t = t == '.' || t == ' ' ? ',' : t; };
  entrada::Escribir(f.TxtA, U'.');
  entrada::Tecla(f.TxtA, tecla::Espacio);
  EXPECT_EQ(f.TxtA.Text, "1,,");
}

TEST_F(Teclado, KeyPressSeQuedaConElCaracter) {
  Esperar("1");
  f.TxtA.KeyPress = [](int& t) { t = 0; };
  entrada::Escribir(f.TxtA, U'5');
  entrada::Tecla(f.TxtA, tecla::Borrar);
  EXPECT_EQ(f.TxtA.Text, "1");
}

TEST_F(Teclado, KeyDownSeQuedaConLaTecla) {
  Esperar("1");
  f.TxtA.KeyDown = [](int& t) { t = 0; };
  entrada::Escribir(f.TxtA, U'5');
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_EQ(f.TxtA.Text, "1");
}

TEST_F(Teclado, SiUnManejadorSeLlevaElFocoElCaracterNoEntra) {
  Esperar("1");
  f.TxtA.KeyPress = [this](int&) { f.TxtB.SetFocus(); };
  entrada::Escribir(f.TxtA, U'5');
  EXPECT_EQ(f.TxtA.Text, "1");
  EXPECT_EQ(f.TxtB.Text, "");
}

TEST_F(Teclado, SiKeyDownSeLlevaElFocoNoHayKeyPress) {
  Esperar("1");
  f.TxtA.KeyDown = [this](int&) { f.TxtB.SetFocus(); };
  entrada::Tecla(f.TxtA, tecla::Borrar);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.LostFocus", "TxtB.GotFocus"));
  EXPECT_EQ(f.TxtA.Text, "1");
}

TEST_F(Teclado, BorrarYSuprimirQuitanUnCaracterOLoSeleccionado) {
  Esperar("años");
  entrada::Tecla(f.TxtA, tecla::Borrar);
  EXPECT_EQ(f.TxtA.Text, "año");
  entrada::Seleccionar(f.TxtA, 1, 0);
  entrada::Tecla(f.TxtA, tecla::Suprimir);
  EXPECT_EQ(f.TxtA.Text, "ao");
  EXPECT_EQ(f.TxtA.SelStart, 1);
  f.TxtA.SeleccionarTodo();
  entrada::Tecla(f.TxtA, tecla::Borrar);
  EXPECT_EQ(f.TxtA.Text, "");
  (void)sucesos.Tomar();
  entrada::Tecla(f.TxtA, tecla::Borrar);
  EXPECT_THAT(sucesos.Tomar(), testing::Not(testing::Contains("TxtA.Change")));
}

TEST_F(Teclado, UnaTeclaQuePulsaEsComoUnClic) {
  PonerFoco(f.Btn);
  entrada::Tecla(f.Btn, tecla::Intro);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Btn.MouseDown", "Btn.Click", "Btn.MouseUp"));
  entrada::Tecla(f.Btn, tecla::Espacio);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Btn.MouseDown", "Btn.Click", "Btn.MouseUp"));
  PonerFoco(f.Chk);
  entrada::Escribir(f.Chk, U' ');
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Chk.MouseDown", "Chk.Click", "Chk.MouseUp"));
  EXPECT_TRUE(f.Chk.Value);
  PonerFoco(f.OptUno);
  entrada::Tecla(f.OptUno, tecla::Espacio);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("OptUno.MouseDown", "OptUno.Click", "OptUno.MouseUp"));
  EXPECT_TRUE(f.OptUno.Value);
}

TEST_F(Teclado, IntroNoPulsaUnaCasilla) {
  PonerFoco(f.Chk);
  entrada::Tecla(f.Chk, tecla::Intro);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
  EXPECT_FALSE(f.Chk.Value);
}

TEST_F(Teclado, LasFlechasMuevenLaCeldaComoUnaAsignacion) {
  PonerFoco(f.Msf);
  entrada::Tecla(f.Msf, tecla::Abajo);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 1 0", "Msf.RowColChange 2 0"));
  entrada::Tecla(f.Msf, tecla::Derecha);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 2 0", "Msf.RowColChange 2 1"));
  entrada::Tecla(f.Msf, tecla::Arriba);
  entrada::Tecla(f.Msf, tecla::Izquierda);
  (void)sucesos.Tomar();
  entrada::Tecla(f.Msf, tecla::Arriba);
  entrada::Tecla(f.Msf, tecla::Izquierda);
  EXPECT_THAT(sucesos.Tomar(), IsEmpty()) << "la cabecera y el borde paran";
}

TEST_F(Teclado, LasFlechasSaltanLasColumnasSinAncho) {
  f.Msf.ColWidth(1, 0);
  PonerFoco(f.Msf);
  entrada::Tecla(f.Msf, tecla::Derecha);
  EXPECT_EQ(f.Msf.Col, 2);
}

TEST_F(Teclado, EspacioPulsaLaCeldaActualEIntroLaPulsaDosVeces) {
  PonerFoco(f.Msf);
  entrada::Tecla(f.Msf, tecla::Espacio);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.MouseDown", "Msf.Click", "Msf.MouseUp"));
  entrada::Tecla(f.Msf, tecla::Intro);
  EXPECT_THAT(sucesos.Tomar(),
              ElementsAre("Msf.MouseDown", "Msf.Click", "Msf.MouseUp", "Msf.DblClick"));
}

TEST_F(Teclado, TeclearEnUnaCeldaEscribeEnElEditorQueAbre) {
  PonerFoco(f.Msf);
  f.Msf.DblClick = [this] {
    f.TxtA.Text = "viejo";
    f.TxtA.SetFocus();
    f.TxtA.SeleccionarTodo();
  };
  f.TxtA.KeyPress = [](int& t) { t = t == 'x' ? 0 : t; };
  entrada::Escribir(f.Msf, U'x');
  EXPECT_EQ(f.TxtA.Text, "viejo") << "las teclas del editor se filtran como siempre";
  PonerFoco(f.Msf);
  entrada::Escribir(f.Msf, U'ñ');
  EXPECT_EQ(f.TxtA.Text, "ñ");
}

TEST_F(Teclado, TeclearEnUnaCeldaNoEscribeEnOtroPanel) {
  PonerFoco(f.Msf);
  f.Msf.DblClick = [this] { f.TxtDentro.SetFocus(); };
  entrada::Escribir(f.Msf, U'7');
  EXPECT_EQ(f.TxtDentro.Text, "");
}

TEST_F(Teclado, TeclearEnUnaColumnaSinAnchoNoHaceNada) {
  f.Msf.ColWidth(0, 0);
  PonerFoco(f.Msf);
  entrada::Escribir(f.Msf, U'7');
  EXPECT_THAT(sucesos.Tomar(), IsEmpty());
}

TEST_F(Teclado, DesdeUnaColumnaSinAnchoLaPrimeraFlechaLlevaALoQueSeVe) {
  f.Msf.ColWidth(0, 0);
  f.Msf.MoverA(4, 0);
  f.Msf.TopRow = 2;
  PonerFoco(f.Msf);
  entrada::Tecla(f.Msf, tecla::Abajo);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("Msf.LeaveCell 4 0", "Msf.RowColChange 2 1"));
  entrada::Tecla(f.Msf, tecla::Abajo);
  EXPECT_EQ(f.Msf.Row, 3);
}

TEST_F(Teclado, LasFlechasEligenEntreLasOpcionesDelGrupo) {
  f.OptUno.Value = true;
  PonerFoco(f.OptUno);
  entrada::Tecla(f.OptUno, tecla::Abajo);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("OptDos.MouseDown", "OptUno.LostFocus",
                                           "OptDos.GotFocus", "OptDos.Click", "OptDos.MouseUp"));
  EXPECT_TRUE(f.OptDos.Value);
  entrada::Tecla(f.OptDos, tecla::Derecha);
  EXPECT_TRUE(f.OptUno.Value) << "tras la última va la primera";
  entrada::Tecla(f.OptUno, tecla::Izquierda);
  EXPECT_EQ(Foco(), &f.OptDos);
  EXPECT_FALSE(f.OptDentro.Value) << "la de otro panel es de otro grupo";
}

TEST_F(Teclado, LasFlechasPasanDeLargoUnaOpcionInhabilitada) {
  f.OptDos.Enabled = false;
  PonerFoco(f.OptUno);
  entrada::Tecla(f.OptUno, tecla::Arriba);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre());
  EXPECT_EQ(Foco(), &f.OptUno);
}

TEST_F(Teclado, ElTabuladorPasaPorKeyDown) {
  Esperar("1");
  entrada::Tecla(f.TxtA, tecla::Tabulador);
  EXPECT_THAT(sucesos.Tomar(), ElementsAre("TxtA.KeyDown 9", "TxtA.LostFocus", "TxtB.GotFocus"));
}

TEST_F(Teclado, KeyDownSeQuedaConElTabulador) {
  Esperar("1");
  f.TxtA.KeyDown = [](int& t) { t = 0; };
  entrada::Tabular(f, true);
  EXPECT_EQ(Foco(), &f.TxtA);
  f.TxtA.KeyDown = [this](int&) { f.Btn.SetFocus(); };
  entrada::Tabular(f, false);
  EXPECT_EQ(Foco(), &f.Btn) << "o lo lleva él a otro sitio";
}

}  // namespace
