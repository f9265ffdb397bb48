#include <gmock/gmock.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "platform/qt/oido.h"
#include "platform/qt/pantalla_modal.h"
#include "qt/nombres.h"
#include "qt/seleccion_qt.h"

// The cash screen as a user has it.

namespace {

using pruebas::Apuntes;
using testing::Contains;
using testing::IsEmpty;

class CajaEnPantalla : public pruebas::PantallaModal {
 protected:
  /// An entry of the concept with entries.
  void Empezar(int apuntes) {
    AbrirCon(Apuntes(apuntes));
    Boton("BotonNuevo");
    QTest::keyClicks(QApplication::focusWidget(), "400");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }
  void Cancelar() {
    Boton("BtnCancelar");
    Cerrar();
  }
  [[nodiscard]] qt::SeleccionQt& Fila(int i) const {
    return dynamic_cast<qt::SeleccionQt&>(En<QLabel>("LblSeleccion_" + QString::number(i)));
  }
  [[nodiscard]] bool ALaVista(int i) const {
    const QWidget& visor = *En<QWidget>("PicScroll").parentWidget();
    const QRect fila(Fila(i).mapTo(&visor, QPoint()), Fila(i).size());
    return visor.rect().contains(fila);
  }
};

TEST_F(CajaEnPantalla, SusNombresEstanEnLosDosLados) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_THAT(qt::NombresSinPareja(Modelo(), *modal), IsEmpty());
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, LasFilasEstanUnaBajoOtraDondeDiceElModelo) {
  Empezar(15);
  Dentro("BotonCaja", [this] {
    for (int i = 0; i < 15; ++i) {
      const QString n = QString::number(i);
      const QWidget& fecha = En<QWidget>("LblTxt_" + n);
      const QWidget& texto = En<QWidget>("LblTxt2_" + n);
      EXPECT_EQ(fecha.isVisibleTo(modal), i < 12) << i;  // those on sight, one of them in part
      EXPECT_GE(texto.y(), fecha.geometry().bottom()) << i;
      EXPECT_TRUE(Fila(i).geometry().contains(fecha.geometry())) << i;
      EXPECT_TRUE(Fila(i).geometry().contains(texto.geometry())) << i;
      EXPECT_GE(fecha.height(), fecha.fontMetrics().height()) << i;
      if (i == 0) continue;
      EXPECT_GT(Fila(i).y(), Fila(i - 1).geometry().bottom()) << i;
    }
    EXPECT_TRUE(ALaVista(0));
    EXPECT_FALSE(ALaVista(14));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, EsUnDialogoConSuTituloYElFocoALaVistaDesdeElPrincipio) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_EQ(modal->windowTitle(), "Apuntes de Caja");
    EXPECT_FALSE(En<QWidget>("Barra1").isVisible()) << "el escritorio ya dice lo mismo";
    EXPECT_TRUE(modal->testAttribute(Qt::WA_KeyboardFocusChange));
    QAccessibleInterface* dialogo = QAccessible::queryAccessibleInterface(modal);
    EXPECT_EQ(dialogo->role(), QAccessible::Dialog);
    EXPECT_EQ(dialogo->text(QAccessible::Name), "Apuntes de Caja");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, SeRecorreConSuBarraConLaRuedaYConTeclas) {
  Empezar(40);
  Dentro("BotonCaja", [this] {
    auto& barra = En<QScrollBar>("VScroll1");
    EXPECT_EQ(barra.maximum(), 30);
    // To the end: the last row at the bottom.
    barra.setValue(barra.maximum());
    EXPECT_TRUE(ALaVista(39));
    EXPECT_EQ(ModeloDe<services::PictureBox>("PicScroll").Top, 555 - (40 * 540 + 360 - 6400));
    barra.setValue(0);
    EXPECT_TRUE(ALaVista(0));
    const QPoint centro = En<QWidget>("PicScroll").mapToGlobal(QPoint(50, 50));
    QWheelEvent rueda(QPointF(50, 50), centro, QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&En<QWidget>("PicScroll"), &rueda);
    EXPECT_EQ(ModeloDe<services::VScrollBar>("VScroll1").Value, 3);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    Pulsa(Qt::Key_PageDown);
    EXPECT_EQ(Foco(), "LblSeleccion_11");
    Pulsa(Qt::Key_End);
    EXPECT_EQ(Foco(), "LblSeleccion_39");
    EXPECT_TRUE(ALaVista(39));
    Pulsa(Qt::Key_Up, 20);
    EXPECT_EQ(Foco(), "LblSeleccion_19");
    EXPECT_TRUE(ALaVista(19));
    Pulsa(Qt::Key_Home);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    EXPECT_TRUE(ALaVista(0));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, CadaFilaSeAlcanzaDesdeLaBarraPorMuchasQueSean) {
  Empezar(500);
  Dentro("BotonCaja", [this] {
    auto& barra = En<QScrollBar>("VScroll1");
    std::vector<int> nunca;
    std::vector<bool> vistas(500);
    for (int v = 0; v <= barra.maximum(); ++v) {
      barra.setValue(v);
      for (int i = std::max(0, v - 2); i < std::min(500, v + 14); ++i) {
        if (ALaVista(i)) vistas[static_cast<std::size_t>(i)] = true;
      }
    }
    for (int i = 0; i < 500; ++i) {
      if (!vistas[static_cast<std::size_t>(i)]) nunca.push_back(i);
    }
    EXPECT_THAT(nunca, IsEmpty());
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, UnaObservacionDeVariasLineasSeLeeEnUna) {
  AbrirCon(Apuntes(1) +
           "datos UPDATE CajaPagos SET Observaciones = 'Línea uno' || char(10) || 'dos'\n");
  Boton("BotonNuevo");
  QTest::keyClicks(QApplication::focusWidget(), "400");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  Dentro("BotonCaja", [this] {
    EXPECT_EQ(En<QLabel>("LblTxt2_0").text(), "Línea uno dos");
    EXPECT_EQ(ModeloDe<services::Label>("LblTxt2(0)").Caption, "Línea uno\ndos");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, ElEspacioYElRatonMarcanYElLectorLoOye) {
  Empezar(3);
  const pruebas::Oido oido;
  Dentro("BotonCaja", [&] {
    const auto estado = [this](int i) {
      return QAccessible::queryAccessibleInterface(&Fila(i))->state();
    };
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    EXPECT_FALSE(estado(0).checked);
    Pulsa(Qt::Key_Space);
    EXPECT_TRUE(estado(0).checked);
    EXPECT_THAT(oido.Nombres(QAccessible::StateChanged),
                Contains("Fecha:01/03/2005 10:00:00, Apunte 0"));
    QTest::mouseClick(&Fila(2), Qt::LeftButton);
    EXPECT_TRUE(estado(2).checked);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    QAccessibleInterface* otra = QAccessible::queryAccessibleInterface(&Fila(1));
    EXPECT_EQ(otra->role(), QAccessible::CheckBox);
    EXPECT_TRUE(otra->state().checkable);
    otra->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(estado(1).checked);
    EXPECT_TRUE(ModeloDe<services::Shape>("DivSel(1)").Visible);
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "BtnFacturar");
    Pulsa(Qt::Key_Return);
  });
  EXPECT_EQ(FocoDetras(), "BotonCaja");
  EXPECT_EQ(Vista<QLineEdit>("TxtIFra").text(), "3,00");
  Cancelar();
}

TEST_F(CajaEnPantalla, UnLectorLlevaElFocoAUnaFilaQueNoEstaALaVista) {
  Empezar(40);
  Dentro("BotonCaja", [this] {
    EXPECT_FALSE(ALaVista(30));
    QAccessibleInterface* fila = QAccessible::queryAccessibleInterface(&Fila(30));
    fila->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Foco(), "LblSeleccion_30");
    EXPECT_TRUE(ALaVista(30));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, SeCierraConEscapeYConElBotonDeLaVentanaComoConSalir) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_FALSE(modal->windowFlags() & Qt::WindowCloseButtonHint);
    Pulsa(Qt::Key_Space);
    modal->close();
    EXPECT_FALSE(modal->isVisible());
  });
  // Hidden, it keeps the mark and the row with the focus.
  Dentro("BotonCaja", [this] {
    EXPECT_TRUE(Fila(0).Marcada());
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, MilFilasSeAbrenYSeVuelvenAAbrir) {
  Empezar(1000);
  QElapsedTimer reloj;
  reloj.start();
  Dentro("BotonCaja", [&] {
    std::printf("[ medida ] de pulsar a verse 1000 filas: %lld ms\n",
                static_cast<long long>(reloj.elapsed()));
    EXPECT_TRUE(ALaVista(0));
    reloj.restart();
    Pulsa(Qt::Key_End);
    modal->repaint();
    std::printf("[ medida ] hasta la última: %lld ms\n", static_cast<long long>(reloj.elapsed()));
    EXPECT_TRUE(ALaVista(999));
    Pulsa(Qt::Key_Escape);
  });
  reloj.restart();
  Dentro("BotonCaja", [&] {
    std::printf("[ medida ] y otra vez: %lld ms\n", static_cast<long long>(reloj.elapsed()));
    EXPECT_EQ(Foco(), "LblSeleccion_999");
    EXPECT_TRUE(ALaVista(999));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

}  // namespace
