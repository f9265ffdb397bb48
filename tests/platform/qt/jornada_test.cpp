#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <memory>

#include "jornada/partida.h"
#include "platform/qt/dia_en_pantalla.h"

// A working day with keys and mouse alone, on the real screen.

namespace {

using jornada::Partida;
using pruebas::DiaEnPantalla;

/// The same day as the keys and clicks below, for the runner.
const std::string kDia = R"(
responder no si
cargar
celda MSFPagos 2 5
doble MSFPagos 5 4
teclear TxtMsf "20,50"
tecla Intro
tecla Escape
celda MSFPagos 3 5
celda MSFPagos 3 5
celda MSFPagos 9 3
pulsar BotonBorrar
pulsar BotonAceptar
celda MSFPagos 5 5
teclear TxtFPrevision "30/04/2005"
pulsar OptConcepto
celda MSFPagos 1 5
pulsar BotonAceptar
cerrar
)";

TEST_F(DiaEnPantalla, ConTeclasYRatonDejaLasMismasTablasQueElGuion) {
  Partida otra;
  ASSERT_EQ(otra.Jugar(jornada::kEmpresa + kDia).Salida, "");
  const std::string esperadas = otra.Jugar(jornada::kTablas).Salida;

  ASSERT_EQ(Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
  Abrir();
  Celda(2, 5);
  DobleCelda(5, 4);
  auto& editor = Vista<QLineEdit>("TxtMsf");
  ASSERT_TRUE(editor.isVisible());
  QTest::keyClicks(&editor, "20,50");
  QTest::keyClick(&editor, Qt::Key_Return);
  QTest::keyClick(&editor, Qt::Key_Escape);
  Celda(3, 5);
  Celda(3, 5);
  Celda(9, 3);
  // That two payments are not saved yet, which the runner isn't asked, and that the line is to go.
  Responder({Qt::Key_N, Qt::Key_N});
  Boton("BotonBorrar");
  Boton("BotonAceptar");
  Celda(5, 5);
  auto& hasta = Vista<QLineEdit>("TxtFPrevision");
  QTest::mouseClick(&hasta, Qt::LeftButton);
  hasta.selectAll();
  Responder(Qt::Key_S);
  QTest::keyClicks(&hasta, "30/04/2005");
  Boton("OptConcepto");
  Celda(1, 5);
  Boton("BotonAceptar");
  Cerrar();

  EXPECT_EQ(Partida(opciones).Jugar(jornada::kTablas).Salida, esperadas);
}

TEST_F(DiaEnPantalla, ElCursorDiceQueSeEspera) {
  std::vector<Qt::CursorShape> cursores;
  plataforma.Ocupado = [&cursores, ocupado = plataforma.Ocupado](bool si) {
    ocupado(si);
    const QCursor* cursor = QApplication::overrideCursor();
    cursores.push_back(cursor ? cursor->shape() : Qt::ArrowCursor);
  };
  ASSERT_EQ(Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
  Abrir();
  EXPECT_EQ(cursores, (std::vector{Qt::WaitCursor, Qt::ArrowCursor})) << "al cargar";
  Boton("BotonCancelar");
  EXPECT_EQ(cursores.size(), 4U) << "al recargar";
  Boton("BotonAceptar");
  EXPECT_EQ(cursores.size(), 6U) << "y al grabar";
  EXPECT_EQ(cursores.back(), Qt::ArrowCursor);
  Cerrar();
}

// The bounds are loose, so that a busy machine passes and a view that walks all rows doesn't; what
// was measured is printed.
TEST_F(DiaEnPantalla, TreintaMilFilasSeAbrenSeDesplazanYSePaganAlMomento) {
  ASSERT_EQ(Partida(opciones).Jugar(pruebas::kTreintaMil).Estado, 0);
  QElapsedTimer reloj;
  reloj.start();
  Abrir();
  const qint64 abrir = reloj.elapsed();
  auto& lista = Vista<QTableView>("MSFPagos");
  EXPECT_EQ(lista.model()->rowCount(), 30000);

  reloj.restart();
  for (int fila = 0; fila < 30000; fila += 300) {
    lista.verticalScrollBar()->setValue(fila);
    lista.viewport()->repaint();
  }
  const double pagina = static_cast<double>(reloj.nsecsElapsed()) / 1e6 / 100;
  EXPECT_LT(pagina, 100);

  lista.verticalScrollBar()->setValue(0);
  reloj.restart();
  for (int fila = 1; fila <= 20; ++fila) {
    Celda(fila, 5);
    QCoreApplication::processEvents();
  }
  const double marca = static_cast<double>(reloj.nsecsElapsed()) / 1e6 / 20;
  EXPECT_LT(marca, 200);
  EXPECT_EQ(lista.model()->index(19, 4).data().toString(), "116,00");
  std::printf(
      "[ medido   ] de Cargar a pintado %lld ms, por página %.1f ms, por pago marcado %.1f ms\n",
      static_cast<long long>(abrir), pagina, marca);
  Responder(Qt::Key_N);
  Cerrar();
}

TEST_F(DiaEnPantalla, AlCerrarElEditorElFocoPasaALaListaSinRodeos) {
  ASSERT_EQ(Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
  Abrir();
  ventana->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
  DobleCelda(5, 4);
  auto& editor = Vista<QLineEdit>("TxtMsf");
  ASSERT_TRUE(editor.hasFocus());
  std::vector<std::string> paradas;
  QObject::connect(qApp, &QApplication::focusChanged, ventana, [&](QWidget*, QWidget* ahora) {
    paradas.push_back(ahora ? ahora->objectName().toStdString() : "");
  });
  QTest::keyClick(&editor, Qt::Key_Escape);
  EXPECT_THAT(paradas, testing::ElementsAre("MSFPagos"));
  QObject::disconnect(qApp, nullptr, ventana, nullptr);
  Cerrar();
}

}  // namespace
