#include <gmock/gmock.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QPushButton>

#include "platform/qt/informe_en_pantalla.h"
#include "platform/qt/oido.h"
#include "qt/destino_qt.h"
#include "qt/nombres.h"

namespace {

using testing::IsEmpty;

class BuscoImpresoraEnPantalla : public pruebas::InformeEnPantalla {
 protected:
  [[nodiscard]] qt::DestinoQt& Destino(int cual) const {
    return En<qt::DestinoQt>("LblImpre_" + QString::number(cual));
  }
  [[nodiscard]] QAccessibleInterface& Leido(int cual) const {
    return *QAccessible::queryAccessibleInterface(&Destino(cual));
  }
};

TEST_F(BuscoImpresoraEnPantalla, SusNombresEstanEnLosDosLados) {
  AbrirCon(0, {"Laser"});
  Imprimir({[this] {
    EXPECT_THAT(qt::NombresSinPareja(Modelo(), *modal), IsEmpty());
    Pulsa(Qt::Key_Escape);
  }});
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, SinImpresorasEstaLaPantallaYEscapeCierra) {
  AbrirCon(0);
  Imprimir({[this] {
    EXPECT_EQ(modal->windowTitle(), "Selección Impresora");
    EXPECT_EQ(Foco(), "LblImpre_0");
    EXPECT_EQ(Destino(0).text(), "Pantalla");
    EXPECT_TRUE(Destino(0).Marcada());
    Pulsa(Qt::Key_Escape);
    EXPECT_FALSE(modal && modal->isVisible());
  }});
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, ConElTecladoSeEligeYSeCancela) {
  AbrirCon(0, {"Uno", "Dos", "Tres", "Cuatro", "Cinco", "Seis"});
  Imprimir({[this] {
    Pulsa(Qt::Key_Right, 6);
    EXPECT_EQ(Foco(), "LblImpre_6");
    EXPECT_TRUE(Destino(6).isVisible());
    EXPECT_TRUE(Destino(6).Marcada());
    EXPECT_FALSE(Destino(0).isVisible());
    Pulsa(Qt::Key_Home);
    EXPECT_EQ(Foco(), "LblImpre_0");
    Pulsa(Qt::Key_End);
    EXPECT_EQ(Foco(), "LblImpre_6");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "Boton1");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "Boton2");
    Pulsa(Qt::Key_Return);
  }});
  EXPECT_EQ(sesion->Imprenta().Impresora, "Null Impresora");
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, ConElRatonSeEligePorElIconoYPorElNombre) {
  AbrirCon(0, {"Uno", "Dos", "Tres", "Cuatro", "Cinco", "Seis"});
  Imprimir({[this] {
    QTest::mouseClick(&En<qt::ImagenQt>("Img_2"), Qt::LeftButton);
    EXPECT_TRUE(Destino(2).Marcada());
    QTest::mouseClick(&Destino(3), Qt::LeftButton);
    EXPECT_TRUE(Destino(3).Marcada());
    EXPECT_FALSE(Destino(2).Marcada());
    EXPECT_FALSE(Destino(6).isVisible());
    QTest::mouseClick(&En<qt::ImagenQt>("ImgDer"), Qt::LeftButton);
    QTest::mouseClick(&En<qt::ImagenQt>("ImgDer"), Qt::LeftButton);
    EXPECT_TRUE(Destino(6).isVisible());
    EXPECT_EQ(En<QWidget>("Img_2").x(), 0);
    QTest::mouseClick(&En<QPushButton>("Boton2"), Qt::LeftButton);
  }});
  EXPECT_EQ(sesion->Imprenta().Impresora, "Null Impresora");
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, UnNombreLargoNoSeCorta) {
  const std::string largo(127, 'M');
  const std::string guiones = "Oficina_LX-2350DW_series_Administracion_Planta_Segunda_Despacho_12";
  AbrirCon(0, {largo, guiones, "Laser"});
  Imprimir({[this] {
    for (const int cual : {1, 2, 3}) {
      EXPECT_TRUE(QRectF(Destino(cual).rect()).contains(Destino(cual).ComoCabe().Lugar)) << cual;
      EXPECT_TRUE(modal->rect().contains(
          QRect(Destino(cual).mapTo(modal.data(), QPoint()), Destino(cual).size())))
          << cual;
    }
    Pulsa(Qt::Key_Escape);
  }});
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, UnLectorOyeCadaDestinoYElQueSeElige) {
  AbrirCon(0, {"Laser"});
  Imprimir({[this] {
    EXPECT_EQ(Leido(0).role(), QAccessible::RadioButton);
    EXPECT_EQ(Leido(0).text(QAccessible::Name), "Pantalla");
    EXPECT_TRUE(Leido(0).state().checked);
    EXPECT_EQ(Leido(1).text(QAccessible::Name), "Laser");
    EXPECT_FALSE(Leido(1).state().checked);
    Leido(1).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(Leido(1).state().checked);
    EXPECT_FALSE(Leido(0).state().checked);
    Pulsa(Qt::Key_Escape);
  }});
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, EnUnEscritorioPequenoSeLlegaATodo) {
  AbrirCon(0, {"Uno", "Dos", "Tres", "Cuatro", "Cinco", "Seis"});
  Imprimir({[this] {
    modal->resize(420, 220);
    QTest::qWait(20);
    EXPECT_LE(modal->width(), 420);
    EXPECT_TRUE(modal->rect().contains(En<QPushButton>("Boton2").geometry()));
    for (int cual = 1; cual <= 6; ++cual) {
      Pulsa(Qt::Key_Right);
      EXPECT_EQ(Foco(), "LblImpre_" + std::to_string(cual));
      EXPECT_FALSE(Destino(cual).visibleRegion().isEmpty()) << cual;
    }
    Pulsa(Qt::Key_Escape);
  }});
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, UnLectorPuedeEmpezarAImprimir) {
  AbrirCon(0);
  QAccessibleInterface& imagen =
      *QAccessible::queryAccessibleInterface(&Vista<qt::ImagenQt>("ImgImpresora"));
  EXPECT_EQ(imagen.role(), QAccessible::Button);
  EXPECT_EQ(imagen.text(QAccessible::Name), "Imprimir");
  QTimer::singleShot(60, ventana, [] {
    auto* lienzo = dynamic_cast<qt::Lienzo*>(QApplication::activeModalWidget());
    ASSERT_NE(lienzo, nullptr);
    EXPECT_EQ(lienzo->windowTitle(), "Selección Impresora");
    QTest::keyClick(lienzo, Qt::Key_Escape);
    if (lienzo->isVisible()) lienzo->close();
  });
  imagen.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  QTest::qWait(30);
  EXPECT_EQ(sesion->Imprenta().Impresora, "Null Impresora");
  Cerrar();
}

TEST_F(BuscoImpresoraEnPantalla, LoQueNoEsDeUnaPantallaEsDelAnfitrion) {
  AbrirCon(0);
  for (const Qt::Key tecla : {Qt::Key_Plus, Qt::Key_Minus}) {
    QKeyEvent evento(QEvent::KeyPress, tecla, Qt::ControlModifier);
    evento.setAccepted(true);
    QApplication::sendEvent(ventana, &evento);
    EXPECT_FALSE(evento.isAccepted());
  }
  Cerrar();
}

}  // namespace
