#include <gmock/gmock.h>

#include <QLineEdit>

#include "platform/qt/frm_prueba.h"

// Control arrays that grow and shrink under the window.

namespace {

using pruebas::Escena;

class MatrizEnPantalla : public testing::Test {
 protected:
  services::TextBox& Anadir() {
    services::TextBox& nueva = matriz.Anadir(escena.form->PicPanel, "TxtNumero");
    QCoreApplication::processEvents();
    return nueva;
  }
  [[nodiscard]] QLineEdit* Vista(const char* nombre) const {
    return escena.marco.findChild<QLineEdit*>(nombre);
  }

  Escena escena;
  services::MatrizControles<services::TextBox>& matriz = escena.form->TxtNumero;
};

TEST_F(MatrizEnPantalla, UnElementoNuevoSeVeComoElPrimeroYDetrasDelAnterior) {
  Anadir();
  Anadir();
  const QLineEdit* primera = Vista("TxtNumero_0");
  const QLineEdit* segunda = Vista("TxtNumero_1");
  const QLineEdit* tercera = Vista("TxtNumero_2");
  ASSERT_NE(segunda, nullptr);
  ASSERT_NE(tercera, nullptr);
  EXPECT_TRUE(segunda->isVisible());
  EXPECT_EQ(segunda->maximumSize(), primera->maximumSize());
  EXPECT_EQ(segunda->accessibleName(), primera->accessibleName());
  EXPECT_LT(primera->y(), segunda->y());
  EXPECT_LT(segunda->y(), tercera->y());
}

TEST_F(MatrizEnPantalla, UnElementoNuevoTomaLoQueSeTeclea) {
  services::TextBox& nueva = Anadir();
  nueva.Text = "1";
  EXPECT_EQ(Vista("TxtNumero_1")->text(), "1");
  nueva.SetFocus();
  QTest::keyClick(Vista("TxtNumero_1"), Qt::Key_2);
  EXPECT_EQ(nueva.Text, "21");
}

TEST_F(MatrizEnPantalla, UnElementoQuitadoSeVaYOtroPuedeTomarSuSitio) {
  Anadir();
  Anadir();
  matriz.QuitarUltimo();
  EXPECT_EQ(Vista("TxtNumero_2"), nullptr);
  EXPECT_NE(Vista("TxtNumero_1"), nullptr);
  services::TextBox& otra = Anadir();
  otra.Text = "otra";
  ASSERT_NE(Vista("TxtNumero_2"), nullptr);
  EXPECT_EQ(Vista("TxtNumero_2")->text(), "otra");
}

}  // namespace
