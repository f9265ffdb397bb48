#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "qt/dialogo_conceptos.h"

// The concept search as the user types.

namespace {

class Buscador : public testing::Test {
 protected:
  std::vector<qt::Concepto> conceptos{{"101", "Ácidos del Norte"},
                                      {"12", "Gas Natural Alto Duero"},
                                      {"7", "Peña y Asociados"},
                                      {"120", "Limpiezas Norteñas"}};
};

TEST_F(Buscador, PorNombreNoCuentanAcentosNiMayusculas) {
  qt::DialogoConceptos dialogo(conceptos, false, "", nullptr);
  auto* linea = dialogo.findChild<QLineEdit*>();
  auto* tabla = dialogo.findChild<QTableView*>();
  EXPECT_EQ(tabla->model()->rowCount(), 4);
  QTest::keyClicks(linea, "norte");
  EXPECT_EQ(tabla->model()->rowCount(), 2);
  QTest::keyClicks(linea, " acid");
  EXPECT_EQ(tabla->model()->rowCount(), 1);
  EXPECT_EQ(dialogo.Elegido(), "101");
}

TEST_F(Buscador, PorCodigoVaElComienzo) {
  qt::DialogoConceptos dialogo(conceptos, true, "12", nullptr);
  EXPECT_EQ(dialogo.findChild<QTableView*>()->model()->rowCount(), 2);
  EXPECT_EQ(dialogo.Elegido(), "12");
}

TEST_F(Buscador, LasFlechasMuevenLaListaMientrasSeEscribe) {
  qt::DialogoConceptos dialogo(conceptos, true, "12", nullptr);
  QTest::keyClick(dialogo.findChild<QLineEdit*>(), Qt::Key_Down);
  EXPECT_EQ(dialogo.Elegido(), "120");
}

TEST_F(Buscador, IntroEligeYEscapeNo) {
  qt::DialogoConceptos dialogo(conceptos, false, "gas", nullptr);
  dialogo.show();
  QTest::keyClick(dialogo.findChild<QLineEdit*>(), Qt::Key_Return);
  EXPECT_EQ(dialogo.result(), QDialog::Accepted);
  dialogo.show();
  QTest::keyClick(dialogo.findChild<QLineEdit*>(), Qt::Key_Escape);
  EXPECT_EQ(dialogo.result(), QDialog::Rejected);
}

TEST_F(Buscador, SinConceptosNoHayQueAceptar) {
  qt::DialogoConceptos dialogo(conceptos, false, "zzz", nullptr);
  EXPECT_EQ(dialogo.Elegido(), "");
  dialogo.show();
  QTest::keyClick(dialogo.findChild<QLineEdit*>(), Qt::Key_Return);
  EXPECT_TRUE(dialogo.isVisible());
  EXPECT_EQ(dialogo.findChild<QLabel*>()->text(), "0 de 4 conceptos");
}

}  // namespace
