#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "jornada/partida.h"
#include "platform/qt/dia_en_pantalla.h"

// Entries typed on the real screen.

namespace {

using jornada::Partida;

class EntradaEnPantalla : public pruebas::DiaEnPantalla {
 protected:
  void AbrirActiva() {
    Abrir();
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
  }
  [[nodiscard]] std::string Foco() const {
    const QWidget* foco = ventana->window()->focusWidget();
    return foco ? foco->objectName().toStdString() : "";
  }
  /// Keys for whatever has the focus: texts, with `\n` for Enter and `\t` for Tab.
  void Teclas(const char* teclas) {
    for (const char* t = teclas; *t; ++t) {
      QWidget* foco = ventana->window()->focusWidget();
      ASSERT_NE(foco, nullptr);
      if (*t == '\n') {
        QTest::keyClick(foco, Qt::Key_Return);
      } else if (*t == '\t') {
        QTest::keyClick(foco, Qt::Key_Tab);
      } else {
        QTest::keyClick(foco, *t);
      }
    }
  }
  /// Tab, or backwards, until that widget has the focus.
  void TabularHasta(const char* nombre, Qt::Key tecla = Qt::Key_Tab) {
    for (int i = 0; i < 60 && Foco() != nombre; ++i) {
      QTest::keyClick(ventana->window()->focusWidget(), tecla);
    }
    ASSERT_EQ(Foco(), nombre);
  }
};

/// The same as the keys below, for the runner. Of the fields that Tab goes through just `CboPlazo`
/// does anything: it proposes a date.
const std::string kEntradasConTeclas = R"(
responder no si
cargar
foco BotonNuevo
tecla Espacio
teclear TxtConcepto "31"
tecla Intro
tecla Intro
teclear TxtNFra "T-1"
tecla Intro
teclear TxtIFra "1.160,00"
tecla Intro
espera TxtB16.Text "1.000,00"
foco OptAplazado
tecla Espacio
teclear TxtNRecibos "3"
tecla Intro
teclear TxtDias "15"
tecla Intro
teclear TxtCadencia "5"
tecla Intro
foco BtnAceptar
tecla Intro
celda MSFPagos 2 1
foco BotonModificar
tecla Espacio
foco TxtIFra
teclear TxtIFra "232"
foco TxtB16
foco BtnAceptar
tecla Intro
celda MSFPagos 1 1
foco BotonModificar
tecla Espacio
foco TxtFFra
teclear TxtFFra "09/03/2005"
tecla Intro
foco TxtNFra
teclear TxtNFra "A-1"
tecla Intro
teclear TxtIFra "600"
tecla Intro
foco CboPlazo
foco BtnAceptar
tecla Intro
foco BotonAceptar
tecla Intro
cerrar
)";

// Forwards and backwards, no step of it touches the mouse but for the choice of the lines.
TEST_F(EntradaEnPantalla, ConTeclasDejaLasMismasTablasQueElGuion) {
  Partida otra;
  const Partida::Jugada dia = otra.Jugar(jornada::kEmpresa + kEntradasConTeclas);
  ASSERT_EQ(dia.Estado, 0) << dia.Salida << dia.Errores;
  const std::string esperadas = otra.Jugar(jornada::kTablas).Salida;
  ASSERT_NE(esperadas.find("31|T-1|2005"), std::string::npos);
  ASSERT_NE(esperadas.find("20|A-1|2005"), std::string::npos);

  ASSERT_EQ(Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
  AbrirActiva();
  TabularHasta("BotonNuevo");
  Teclas(" ");
  ASSERT_EQ(Foco(), "TxtConcepto");
  Teclas("31\n\nT-1\n1.160,00\n");
  ASSERT_EQ(Foco(), "TxtB16");
  TabularHasta("OptVista");
  QTest::keyClick(ventana->window()->focusWidget(), Qt::Key_Down);
  TabularHasta("TxtNRecibos");
  Teclas("3\n15\n5\n");
  TabularHasta("BtnAceptar");
  Teclas("\n");
  ASSERT_EQ(Foco(), "BotonNuevo");

  Celda(2, 1);
  TabularHasta("BotonModificar");
  Teclas(" ");
  ASSERT_EQ(Foco(), "MSFVencimientos");
  Responder(Qt::Key_N);
  TabularHasta("TxtIFra");
  Teclas("232");
  TabularHasta("TxtB16");
  TabularHasta("BtnAceptar");
  Teclas("\n");

  Celda(1, 1);
  TabularHasta("BotonModificar");
  Teclas(" ");
  ASSERT_EQ(Foco(), "TxtNFra");
  Teclas("A-1");
  TabularHasta("TxtFFra", Qt::Key_Backtab);
  Teclas("09/03/2005\n");
  // With the forecast under way the date leads to it.
  ASSERT_EQ(Foco(), "TxtCada");
  TabularHasta("TxtIFra", Qt::Key_Backtab);
  Teclas("600\n");
  TabularHasta("BtnAceptar");
  Teclas("\n");
  TabularHasta("BotonAceptar");
  Teclas("\n");
  Cerrar();

  EXPECT_EQ(Partida(opciones).Jugar(jornada::kTablas).Salida, esperadas);
}

// The bound is loose, so that a busy machine passes and a field that walks all rows doesn't; what
// was measured is printed.
TEST_F(EntradaEnPantalla, ConTreintaMilFilasDetrasNingunCampoSeHaceEsperar) {
  ASSERT_EQ(Partida(opciones).Jugar(pruebas::kTreintaMil).Estado, 0);
  AbrirActiva();
  TabularHasta("BotonNuevo");
  Teclas(" ");
  std::vector<double> tiempos;
  const auto terminar = [&](const char* texto) {
    Teclas(texto);
    QElapsedTimer reloj;
    reloj.start();
    Teclas("\n");
    QCoreApplication::processEvents();
    tiempos.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1e6);
  };
  for (const char* texto : {"12", "15/03/2005", "N-1", "116", "", "", "15/03/2005"})
    terminar(texto);
  EXPECT_EQ(Vista<QLineEdit>("TxtB16").text().toStdString(), "100,00");
  const double peor = *std::max_element(tiempos.begin(), tiempos.end());
  EXPECT_LT(peor, 200);
  std::printf("[ medido   ] de la tecla que acaba un campo a pintado, el peor de %zu: %.1f ms\n",
              tiempos.size(), peor);
  QTest::keyClick(ventana->window()->focusWidget(), Qt::Key_Escape);
  Cerrar();
}

}  // namespace
