#include "qt/cintilla.h"

#include <gmock/gmock.h>

#include "platform/qt/frm_prueba.h"

// The mouse on the title bar.

namespace {

using pruebas::Escena;
using testing::ElementsAre;

class CintillaEnPantalla : public testing::Test {
 protected:
  CintillaEnPantalla() {
    escena.form->Barra1.Pulsada = Anotar("pulsada");
    escena.form->Barra1.Movida = Anotar("movida");
    escena.form->Barra1.Soltada = Anotar("soltada");
  }
  services::Cintilla::EventoRaton Anotar(const std::string& cual) {
    return [this, cual](const services::Raton& raton) {
      sucesos.push_back(cual + " " + std::to_string(raton.Boton) + " " +
                        std::to_string(raton.Mayusculas));
      ultimo = raton;
    };
  }

  Escena escena;
  qt::CintillaQt& barra = escena.Vista<qt::CintillaQt>("Barra1");
  std::vector<std::string> sucesos;
  services::Raton ultimo;
};

TEST_F(CintillaEnPantalla, DiceLoQueHaceElRatonConSuBotonYSusMayusculas) {
  QTest::mousePress(&barra, Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier,
                    QPoint(60, 10));
  QTest::mouseRelease(&barra, Qt::RightButton, Qt::AltModifier, QPoint(60, 10));
  EXPECT_THAT(sucesos, ElementsAre("pulsada 1 3", "soltada 2 4"));
}

TEST_F(CintillaEnPantalla, LaPosicionVaEnTwipsDentroDeLaBarra) {
  QTest::mousePress(&barra, Qt::LeftButton, {}, QPoint(60, 10));
  EXPECT_NEAR(ultimo.X / ultimo.Y, 6.0, 0.01);
  EXPECT_GE(ultimo.X, 60);
}

TEST_F(CintillaEnPantalla, SeMueveTambienSinBoton) {
  QMouseEvent mueve(QEvent::MouseMove, QPointF(30, 8), barra.mapToGlobal(QPointF(30, 8)),
                    Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&barra, &mueve);
  EXPECT_TRUE(barra.hasMouseTracking());
  EXPECT_THAT(sucesos, ElementsAre("movida 0 0"));
}

}  // namespace
