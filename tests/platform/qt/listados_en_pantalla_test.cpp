#include <gmock/gmock.h>

#include <qpa/qwindowsysteminterface.h>
#include <QComboBox>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

#include "platform/qt/informe_en_pantalla.h"
#include "qt/listado_qt.h"
#include "qt/nombres.h"

namespace {

using testing::IsEmpty;

class ListadosEnPantalla : public pruebas::InformeEnPantalla {
 protected:
  [[nodiscard]] QScrollBar& Scroll() const { return En<QScrollBar>("Scroll"); }
  [[nodiscard]] qt::ListadoQt& Papel() const { return En<qt::ListadoQt>("Listado"); }
  [[nodiscard]] QWidget& Mesa() const { return En<QWidget>("PicFondo"); }
  [[nodiscard]] std::string Zoom() const {
    return En<QComboBox>("CbxPor").currentText().toStdString();
  }
  void Rueda(int giro, Qt::KeyboardModifiers con = Qt::NoModifier) const {
    const QPointF donde = Mesa().mapTo(modal.data(), Mesa().rect().center());
    QWindowSystemInterface::handleWheelEvent(
        modal->windowHandle(), donde, modal->mapToGlobal(donde), QPoint(), QPoint(0, giro), con);
    QWindowSystemInterface::flushWindowSystemEvents();
    QTest::qWait(1);
  }
};

TEST_F(ListadosEnPantalla, SusNombresEstanEnLosDosLados) {
  AbrirCon(200);
  VerEnPantalla([this] { EXPECT_THAT(qt::NombresSinPareja(Modelo(), *modal), IsEmpty()); });
  Cerrar();
}

TEST_F(ListadosEnPantalla, TomaTodaLaPantallaConSuTituloYSuBarra) {
  AbrirCon(10);
  VerEnPantalla([this] {
    EXPECT_TRUE(modal->isFullScreen());
    EXPECT_EQ(modal->windowTitle(), "Listados");
    EXPECT_TRUE(En<QWidget>("Barra1").isVisible());
    EXPECT_EQ(Modelo().Width, modal->width() * 15);
    EXPECT_EQ(Modelo().Height, modal->height() * 15);
    EXPECT_EQ(Zoom(), "100 %");
    EXPECT_EQ(Papel().width(), 794) << "a su tamaño";
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, LaVistaDelModeloEsLaQueHay) {
  AbrirCon(200);
  VerEnPantalla([this] {
    Pulsa(Qt::Key_End);
    const int fin = Papel().geometry().bottom() + 1;
    EXPECT_LE(fin, Mesa().height());
    EXPECT_GE(fin, Mesa().height() - 20) << "la última página al ras";
    Pulsa(Qt::Key_Home);
    EXPECT_NEAR(Papel().y(), 0, 1);
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, SeRecorreConTeclasDesdeLaBarraYDesdeLaLista) {
  AbrirCon(200);
  VerEnPantalla([this] {
    EXPECT_EQ(Foco(), "Scroll");
    Pulsa(Qt::Key_Down);
    EXPECT_EQ(Scroll().value(), 1);
    Pulsa(Qt::Key_PageDown);
    EXPECT_EQ(Scroll().value(), 10);
    Pulsa(Qt::Key_PageUp);
    EXPECT_EQ(Scroll().value(), 1);
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "CbxPor");
    Pulsa(Qt::Key_End);
    EXPECT_EQ(Scroll().value(), Scroll().maximum());
    Pulsa(Qt::Key_Home);
    EXPECT_EQ(Scroll().value(), 0);
    Pulsa(Qt::Key_PageDown);
    EXPECT_EQ(Scroll().value(), 9);
    EXPECT_EQ(Zoom(), "100 %");
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, ElFocoDeLaBarraSeVe) {
  AbrirCon(200);
  VerEnPantalla([this] {
    const auto marco = [this] { return En<QWidget>("DivScroll").grab().toImage(); };
    EXPECT_EQ(Foco(), "Scroll");
    const QImage con = marco();
    Pulsa(Qt::Key_Tab);
    EXPECT_NE(marco(), con);
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, ElMarcoDeLaHojaSeVeTambienPequeno) {
  AbrirCon(200);
  VerEnPantalla([this] {
    for (const char* zoom : {"Encajar", "50 %"}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Minus, Qt::ControlModifier);
      const QImage papel = Papel().grab().toImage();
      const int medio = papel.height() / 20;
      int izquierda = 255;
      int derecha = 255;
      for (int x = 0; x < 3; ++x) {
        izquierda = std::min(izquierda, qGray(papel.pixel(x, medio)));
        derecha = std::min(derecha, qGray(papel.pixel(papel.width() - 1 - x, medio)));
      }
      EXPECT_LT(izquierda, 140) << zoom;
      EXPECT_LT(derecha, 140) << zoom;
    }
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, LaRuedaRecorreYConControlAcerca) {
  AbrirCon(200);
  VerEnPantalla([this] {
    Rueda(-120);
    EXPECT_GT(Scroll().value(), 0);
    Rueda(-120, Qt::ControlModifier);
    EXPECT_NE(Zoom(), "100 %");
    EXPECT_EQ(Scroll().value(), 0);
    Rueda(120, Qt::ControlModifier);
    EXPECT_EQ(Zoom(), "100 %");
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, ControlMasYMenosAcercanYAlejan) {
  AbrirCon(200);
  VerEnPantalla([this] {
    const auto con = [](Qt::Key tecla) {
      QTest::keyClick(QApplication::focusWidget(), tecla, Qt::ControlModifier);
    };
    con(Qt::Key_Minus);
    con(Qt::Key_Minus);
    EXPECT_EQ(Zoom(), "50 %");
    con(Qt::Key_Plus);
    con(Qt::Key_Plus);
    EXPECT_EQ(Zoom(), "100 %");
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, CuandoLaBarraSeVaElTecladoSigueYEscapeCierra) {
  AbrirCon(3);
  VerEnPantalla([this] {
    ASSERT_TRUE(Scroll().isVisible());
    EXPECT_EQ(Foco(), "Scroll");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_FALSE(Scroll().isVisible());
    Pulsa(Qt::Key_Escape);
    EXPECT_FALSE(modal && modal->isVisible());
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, OtroTamanoDeVentanaLoRecoloca) {
  AbrirCon(200);
  VerEnPantalla([this] {
    Pulsa(Qt::Key_End);
    modal->setWindowState(Qt::WindowNoState);
    modal->resize(700, 500);
    QTest::qWait(60);
    EXPECT_EQ(Modelo().Height, modal->height() * 15);
    const int fin = Papel().geometry().bottom() + 1;
    EXPECT_LE(fin, Mesa().height());
    EXPECT_GE(fin, Mesa().height() - 20);
  });
  Cerrar();
}

TEST_F(ListadosEnPantalla, LoPintadoEsElInforme) {
  AbrirCon(200);
  VerEnPantalla([this] {
    const QImage mesa = Mesa().grab().toImage();
    const QPoint hoja = Papel().pos() + QPoint(Papel().width() / 2, 20);
    EXPECT_EQ(mesa.pixelColor(hoja), QColor(Qt::white));
    int oscuros = 0;
    for (int y = 40; y < mesa.height(); ++y) {
      for (int x = 0; x < mesa.width(); ++x) oscuros += qGray(mesa.pixel(x, y)) < 64 ? 1 : 0;
    }
    EXPECT_GT(oscuros, 3000) << "letras";
    EXPECT_EQ(Papel().Paginas(), static_cast<std::size_t>(sesion->Imprenta().PaginaInforme));
    EXPECT_EQ(Papel().accessibleName(),
              QString("Informe de %1 páginas").arg(sesion->Imprenta().PaginaInforme));
  });
  Cerrar();
}

/// How long each takes is printed, and no claim.
TEST_F(ListadosEnPantalla, CambiarElZoomDeVeintePaginas) {
  AbrirCon(1100);
  VerEnPantalla([this] {
    ASSERT_GE(Papel().Paginas(), 20U);
    QElapsedTimer reloj;
    for (const Qt::Key tecla : {Qt::Key_Minus, Qt::Key_Minus, Qt::Key_Plus, Qt::Key_Plus}) {
      reloj.start();
      QTest::keyClick(QApplication::focusWidget(), tecla, Qt::ControlModifier);
      modal->repaint();
      std::printf("  %s en %lld ms\n", Zoom().c_str(), static_cast<long long>(reloj.elapsed()));
    }
    EXPECT_EQ(Zoom(), "100 %");
  });
  Cerrar();
}

}  // namespace
