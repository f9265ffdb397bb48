#include "qt/colocacion.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/qt/rejilla_en_pantalla.h"
#include "qt/aviso_qt.h"
#include "qt/dialogo_conceptos.h"

// Where a message goes.

namespace {

const QRect kEscritorio(0, 0, 1000, 700);

class Lugar : public testing::Test {
 protected:
  /// A box of 300 by 100 over a window.
  [[nodiscard]] static QRect Caja(const QRect& ventana, const QList<QRect>& aLaVista) {
    const QSize medida(300, 100);
    return {qt::Colocar(medida, ventana, kEscritorio, aLaVista), medida};
  }
};

TEST_F(Lugar, EnMedioDondeNoEstorba) {
  EXPECT_EQ(Caja(kEscritorio, {}).center(), kEscritorio.center());
  EXPECT_EQ(Caja(kEscritorio, {QRect(10, 10, 100, 20)}).center(), kEscritorio.center());
}

TEST_F(Lugar, JuntoALoQueTaparia) {
  const QRect campo(450, 330, 60, 20);
  const QRect caja = Caja(kEscritorio, {campo});
  EXPECT_FALSE(caja.intersects(campo));
  EXPECT_LT((caja.center() - kEscritorio.center()).manhattanLength(), 100) << "lo más cerca";
}

TEST_F(Lugar, SinSalirseDelEscritorio) {
  const QRect ventana(700, 500, 300, 200);
  const QRect campo(760, 600, 200, 20);
  const QRect caja = Caja(ventana, {campo});
  EXPECT_TRUE(kEscritorio.contains(caja));
  EXPECT_FALSE(caja.intersects(campo));
  EXPECT_TRUE(kEscritorio.contains(Caja(QRect(900, 650, 400, 300), {})));
}

TEST_F(Lugar, SinSitioParaTodoCuentaLoPrimero) {
  const QRect campo(450, 330, 60, 20);
  const QRect resto(0, 360, 1000, 340);
  const QRect caja = Caja(kEscritorio, {campo, resto, QRect(0, 0, 1000, 325)});
  EXPECT_FALSE(caja.intersects(campo));
  EXPECT_FALSE(caja.intersects(resto));
}

TEST_F(Lugar, SinSitioParaNadaEnMedio) {
  EXPECT_EQ(Caja(kEscritorio, {kEscritorio}).center(), kEscritorio.center());
}

class LoQueSePregunta : public pruebas::RejillaEnPantalla {
 protected:
  LoQueSePregunta() {
    escena.Llenar(30);
    escena.marco.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
  }
  /// Where the box of a question lies while it is open.
  [[nodiscard]] static QRect Preguntar() {
    QRect donde;
    QTimer::singleShot(0, [&donde] {
      donde = QApplication::activeModalWidget()->frameGeometry();
      QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    qt::AvisoQt(std::chrono::milliseconds::zero())
        .Mostrar("¿Desea eliminar el pago?", services::mensaje::SiNo, "");
    return donde;
  }
  [[nodiscard]] static QRect EnElEscritorio(const QWidget& vista) {
    return {vista.mapToGlobal(QPoint()), vista.size()};
  }
  [[nodiscard]] QRect FilaActual() const {
    const QRect fila = vista.FilaMarcada();
    return {vista.viewport()->mapToGlobal(fila.topLeft()), fila.size()};
  }
};

TEST_F(LoQueSePregunta, NoTapaElCampoQueTieneElFoco) {
  // The button lies as low as the middle of the window.
  QWidget& boton = escena.Vista<QWidget>("BotonGrabar");
  escena.form->BotonGrabar.SetFocus();
  escena.marco.resize(escena.marco.width(), 2 * (boton.mapTo(&escena.marco, QPoint()).y() + 12));
  QCoreApplication::processEvents();
  ASSERT_LT((EnElEscritorio(boton).center() - escena.marco.geometry().center()).y(), 20);
  EXPECT_FALSE(Preguntar().intersects(EnElEscritorio(boton)));
}

TEST_F(LoQueSePregunta, NoTapaLaFilaActual) {
  escena.form->TxtFecha.SetFocus();
  // The first rows lie about the middle of the window.
  escena.marco.resize(700, 2 * (vista.mapTo(&escena.marco, QPoint()).y() + 60));
  QCoreApplication::processEvents();
  for (const int fila : {1, 2, 3}) {
    escena.form->Escritorio().Evento([&] { rejilla.MoverA(fila, 1); });
    ASSERT_FALSE(FilaActual().isEmpty());
    EXPECT_FALSE(Preguntar().intersects(FilaActual())) << fila;
  }
}

TEST_F(LoQueSePregunta, UnaRejillaBajoUnPanelNoEstaAlAlcance) {
  EXPECT_TRUE(qt::AlAlcance(vista));
  QWidget panel(&escena.Vista<QWidget>("FrmPrueba"));
  panel.setProperty("centrado", true);
  panel.setGeometry(0, 0, 600, 600);
  EXPECT_TRUE(qt::AlAlcance(vista)) << "el panel no se ve";
  panel.show();
  EXPECT_FALSE(qt::AlAlcance(vista));
  escena.form->Escritorio().Evento([this] { rejilla.MoverA(30, 1); });
  vista.verticalScrollBar()->setValue(0);
  escena.form->BotonGrabar.Click = [this] { escena.form->Escritorio().Esperar([] {}, true); };
  escena.form->Escritorio().Evento([this] { escena.form->BotonGrabar.Click(); });
  EXPECT_EQ(vista.verticalScrollBar()->value(), 0) << "ni se mueve por una pregunta";
}

TEST_F(LoQueSePregunta, SinTituloSeLeeElDeLaPantalla) {
  QString titulo;
  QTimer::singleShot(0, [&titulo] {
    titulo = QApplication::activeModalWidget()->windowTitle();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
  });
  qt::AvisoQt(std::chrono::milliseconds::zero())
      .Mostrar("El importe no es válido", services::mensaje::Simple, "");
  EXPECT_EQ(titulo, "Tesvara de Pagos");
}

TEST_F(LoQueSePregunta, ElBuscadorDeConceptosDejaVerSuCampo) {
  QWidget& campo = escena.Vista<QWidget>("BotonGrabar");
  qt::DialogoConceptos dialogo({{"1", "Uno"}}, true, "", &escena.marco);
  dialogo.Descubrir(EnElEscritorio(campo));
  dialogo.resize(300, 300);
  dialogo.show();
  EXPECT_FALSE(dialogo.frameGeometry().intersects(EnElEscritorio(campo)));
}

}  // namespace
