#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QPushButton>

#include "platform/qt/rejilla_en_pantalla.h"

// The grid.

namespace {

using pruebas::RejillaEnPantalla;
using testing::ElementsAre;

TEST_F(RejillaEnPantalla, LaFilaCeroEsLaCabecera) {
  escena.Llenar(3);
  EXPECT_EQ(vista.model()->rowCount(), 3);
  EXPECT_EQ(vista.model()->headerData(1, Qt::Horizontal).toString(), "Columna 1");
  EXPECT_EQ(Dato(1, 0), "fila 1");
}

TEST_F(RejillaEnPantalla, LosCambiosSeCuentanJuntosAlFinalDelSuceso) {
  escena.Llenar(100);
  int avisos = 0;
  QObject::connect(vista.model(), &QAbstractItemModel::dataChanged, [&avisos] { ++avisos; });
  escena.form->Escritorio().Evento([&] {
    for (int f = 1; f <= 100; ++f) rejilla.TextMatrix(f, 0, "otra");
    EXPECT_EQ(avisos, 0);
  });
  EXPECT_EQ(avisos, 1);
  EXPECT_EQ(Dato(100, 0), "otra");
}

TEST_F(RejillaEnPantalla, MientrasSeRehaceSePuedePintar) {
  escena.Llenar(50);
  escena.form->Escritorio().Evento([&] {
    rejilla.Rows = 1;
    EXPECT_EQ(vista.model()->rowCount(), 50);
    EXPECT_EQ(Dato(50, 0), "");
    vista.grab();
  });
  EXPECT_EQ(vista.model()->rowCount(), 0);
}

TEST_F(RejillaEnPantalla, UnClicHaceActualLaCelda) {
  escena.Llenar(10);
  escena.form->sucesos.clear();
  Pulsar(3, 1);
  EXPECT_EQ(rejilla.Row(), 3);
  EXPECT_EQ(rejilla.Col(), 1);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("Rejilla_GotFocus", "Rejilla_LeaveCell",
                                                "Rejilla_RowColChange", "Rejilla_Click"));
  EXPECT_EQ(vista.currentIndex(), vista.model()->index(2, 1));
}

TEST_F(RejillaEnPantalla, UnDobleClicEsUnClicYUnDobleClic) {
  escena.Llenar(10);
  Pulsar(2, 1);
  escena.form->sucesos.clear();
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  Pulsar(2, 1);
  QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, Centro(2, 1));
  EXPECT_EQ(
      std::count(escena.form->sucesos.begin(), escena.form->sucesos.end(), "Rejilla_DblClick"), 1);
}

TEST_F(RejillaEnPantalla, LasTeclasMuevenLaCeldaSinSalirse) {
  escena.Llenar(200);
  Pulsar(1, 0);
  QTest::keyClick(&vista, Qt::Key_Down);
  QTest::keyClick(&vista, Qt::Key_Right);
  EXPECT_EQ(rejilla.Row(), 2);
  EXPECT_EQ(rejilla.Col(), 1);
  QTest::keyClick(&vista, Qt::Key_End);
  EXPECT_EQ(rejilla.Row(), 200);
  QTest::keyClick(&vista, Qt::Key_Down);
  EXPECT_EQ(rejilla.Row(), 200);
  QTest::keyClick(&vista, Qt::Key_PageUp);
  EXPECT_LT(rejilla.Row(), 200);
  EXPECT_GT(rejilla.Row(), 100);
  QTest::keyClick(&vista, Qt::Key_Home);
  EXPECT_EQ(rejilla.Row(), 1);
}

TEST_F(RejillaEnPantalla, LaCeldaQueSeHaceActualQuedaALaVista) {
  escena.Llenar(200);
  Pulsar(1, 0);
  QTest::keyClick(&vista, Qt::Key_End);
  EXPECT_TRUE(vista.viewport()->rect().contains(Centro(200, 0)));
  EXPECT_EQ(rejilla.TopRow(), vista.verticalScrollBar()->value() + 1);
  EXPECT_GT(rejilla.TopRow(), 1);
}

TEST_F(RejillaEnPantalla, UnaListaRehechaEmpiezaArriba) {
  escena.Llenar(200);
  vista.verticalScrollBar()->setValue(90);
  EXPECT_EQ(rejilla.TopRow(), 91);
  escena.form->Escritorio().Evento([&] {
    rejilla.Rows = 1;
    for (int f = 0; f < 150; ++f) rejilla.AnadirFila({"x"});
    rejilla.Row = 150;
  });
  EXPECT_EQ(vista.verticalScrollBar()->value(), 0);
  EXPECT_EQ(rejilla.TopRow(), 1);
}

TEST_F(RejillaEnPantalla, ElModeloPuedePonerLaPrimeraFila) {
  escena.Llenar(200);
  rejilla.TopRow = 51;
  EXPECT_EQ(vista.rowAt(0), 50);
}

TEST_F(RejillaEnPantalla, SiempreHayCeldaActualMientrasHayFilas) {
  escena.Llenar(5);
  EXPECT_TRUE(vista.currentIndex().isValid());
  escena.Llenar(2);
  EXPECT_TRUE(vista.currentIndex().isValid());
}

TEST_F(RejillaEnPantalla, LaColumnaSinAnchoNoSeVeYLaMasAnchaTomaElResto) {
  EXPECT_TRUE(vista.isColumnHidden(3));
  const int fijas = vista.columnWidth(0) + vista.columnWidth(2);
  EXPECT_EQ(vista.columnWidth(1), vista.viewport()->width() - fijas);
}

TEST_F(RejillaEnPantalla, LosImportesVanALaDerecha) {
  escena.Llenar(1);
  const auto alineacion = [this](int columna) {
    return vista.model()->index(0, columna).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  };
  EXPECT_TRUE(alineacion(2) & Qt::AlignRight);
  EXPECT_TRUE(alineacion(1) & Qt::AlignLeft);
}

TEST_F(RejillaEnPantalla, UnaTeclaTraeALaVistaLaCeldaAunqueNoLaMueva) {
  escena.Llenar(200);
  Pulsar(1, 2);
  vista.verticalScrollBar()->setValue(100);
  QTest::keyClick(&vista, Qt::Key_Space);
  EXPECT_TRUE(vista.viewport()->rect().contains(Centro(1, 2)));
}

TEST_F(RejillaEnPantalla, UnaPreguntaTraeALaVistaLaFilaActual) {
  escena.Llenar(200);
  rejilla.MoverA(150, 3);
  vista.verticalScrollBar()->setValue(0);
  bool aLaVista = false;
  escena.form->BotonGrabar.Click = [&] {
    escena.form->Escritorio().Esperar(
        [&] { aLaVista = vista.viewport()->rect().contains(Centro(150, 0)); }, true);
  };
  QTest::mouseClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::LeftButton);
  EXPECT_TRUE(aLaVista) << "también si la celda está en una columna que no se ve";
}

TEST_F(RejillaEnPantalla, UnMensajeQueNoPreguntaNoMueveLaLista) {
  escena.Llenar(200);
  rejilla.MoverA(150, 3);
  vista.verticalScrollBar()->setValue(0);
  escena.form->BotonGrabar.Click = [&] { escena.form->Escritorio().Esperar([] {}); };
  QTest::mouseClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::LeftButton);
  EXPECT_EQ(vista.verticalScrollBar()->value(), 0);
}

TEST_F(RejillaEnPantalla, LaSegundaPulsacionCuentaAunqueLaPrimeraLleveAOtraCelda) {
  escena.Llenar(10);
  rejilla.RowColChange = [this] {
    if (rejilla.Row == 8) rejilla.Row = 2;
  };
  int dobles = 0;
  rejilla.DblClick = [&] { ++dobles; };
  const QPoint donde = Centro(8, 1);
  QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, donde);
  QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, donde);
  EXPECT_EQ(rejilla.Row(), 2);
  EXPECT_EQ(dobles, 1);
}

TEST_F(RejillaEnPantalla, LasFranjasSiguenHastaAbajo) {
  escena.Llenar(4);
  escena.form->Escritorio().Evento([this] {
    for (int f = 1; f <= 4; ++f) {
      rejilla.Row = f;
      for (int c = 0; c < 4; ++c) {
        rejilla.Col = c;
        rejilla.CellBackColor = f % 2 ? 0x0000FF : 0x00FF00;
      }
    }
    rejilla.Row = 1;
  });
  const QImage imagen = vista.viewport()->grab().toImage();
  const auto color = [&](int fila) {
    return imagen.pixelColor(40,
                             vista.rowViewportPosition(3) + (fila - 4) * vista.rowHeight(3) + 2);
  };
  EXPECT_EQ(color(4), QColor(0, 255, 0));
  EXPECT_EQ(color(5), QColor(255, 0, 0));
  EXPECT_EQ(color(6), QColor(0, 255, 0));
}

TEST_F(RejillaEnPantalla, TreintaMilFilasSeAbrenYSeDesplazanAlMomento) {
  escena.Llenar(30000);
  EXPECT_EQ(vista.model()->rowCount(), 30000);
  QElapsedTimer reloj;
  reloj.start();
  for (int fila = 0; fila < 30000; fila += 300) {
    vista.verticalScrollBar()->setValue(fila);
    vista.viewport()->repaint();
  }
  // A hundred pages; the bound is loose so that a busy machine passes and a quadratic view doesn't.
  EXPECT_LT(reloj.elapsed(), 5000);
  EXPECT_EQ(Dato(30000, 0), "fila 30000");
}

TEST_F(RejillaEnPantalla, LaPrimeraTeclaLlevaALaVistaLaCeldaQueQuedoOculta) {
  escena.Llenar(40);
  Pulsar(2, 1);
  rejilla.MoverA(40, 3);
  QTest::keyClick(&vista, Qt::Key_Down);
  EXPECT_EQ(rejilla.Row, rejilla.TopRow);
  EXPECT_EQ(rejilla.Col, 0);
  QTest::keyClick(&vista, Qt::Key_Down);
  EXPECT_EQ(rejilla.Row, rejilla.TopRow + 1);
}

TEST_F(RejillaEnPantalla, EspacioEIntroHacenLoQueElRaton) {
  escena.Llenar(5);
  Pulsar(2, 1);
  escena.form->sucesos.clear();
  QTest::keyClick(&vista, Qt::Key_Space);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("Rejilla_Click"));
  escena.form->sucesos.clear();
  QTest::keyClick(&vista, Qt::Key_Return);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("Rejilla_Click", "Rejilla_DblClick"));
}

}  // namespace
