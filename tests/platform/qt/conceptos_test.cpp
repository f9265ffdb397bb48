#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include "platform/qt/oido.h"
#include "qt/colores.h"
#include "qt/dialogo_conceptos.h"

// The concept search as the user types.

namespace {

class Buscador : public testing::Test {
 protected:
  static void Mostrar(QWidget& dialogo) {
    dialogo.show();
    dialogo.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialogo));
  }
  /// The two ways of searching.
  [[nodiscard]] static QList<QRadioButton*> Modos(const QWidget& dialogo) {
    return dialogo.findChildren<QRadioButton*>();
  }
  [[nodiscard]] static QString Modo(const QWidget& dialogo) {
    for (const QRadioButton* modo : Modos(dialogo)) {
      if (modo->isChecked()) return modo->text();
    }
    return {};
  }

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

TEST_F(Buscador, UnTextoQueNoEsNumeroSeBuscaPorNombre) {
  qt::DialogoConceptos dialogo(conceptos, true, "Peña y Asociados", nullptr);
  EXPECT_EQ(dialogo.Elegido(), "7");
  EXPECT_EQ(Modo(dialogo), "Por nombre");
  qt::DialogoConceptos vacio(conceptos, true, "", nullptr);
  EXPECT_EQ(Modo(vacio), "Por código");
}

TEST_F(Buscador, ElTabuladorParaEnElModoQueEstaPuesto) {
  qt::DialogoConceptos dialogo(conceptos, false, "", nullptr);
  Mostrar(dialogo);
  std::vector<QString> paradas;
  for (int i = 0; i < 3; ++i) {
    QTest::keyClick(dialogo.focusWidget(), Qt::Key_Tab);
    const auto* modo = dynamic_cast<QRadioButton*>(dialogo.focusWidget());
    paradas.push_back(modo ? modo->text() : dialogo.focusWidget()->metaObject()->className());
  }
  EXPECT_THAT(paradas, testing::ElementsAre("Por nombre", "QTableView", "QPushButton"));
  Modos(dialogo).back()->setFocus();
  QTest::keyClick(Modos(dialogo).back(), Qt::Key_Left);
  EXPECT_EQ(Modo(dialogo), "Por código");
}

TEST_F(Buscador, CadaConceptoSeDiceConCodigoYNombre) {
  qt::DialogoConceptos dialogo(conceptos, true, "12", nullptr);
  const auto* tabla = dialogo.findChild<QTableView*>();
  EXPECT_EQ(tabla->currentIndex().data(Qt::AccessibleTextRole), "12 Gas Natural Alto Duero");
  EXPECT_EQ(tabla->currentIndex().data(), "12");
}

TEST_F(Buscador, LaTablaSeAnunciaSoloConElFoco) {
  qt::DialogoConceptos dialogo(conceptos, false, "", nullptr);
  Mostrar(dialogo);
  const pruebas::Oido oido;
  QTest::keyClicks(dialogo.findChild<QLineEdit*>(), "norte");
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), testing::IsEmpty());
  dialogo.findChild<QTableView*>()->setFocus();
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), testing::Contains("101 Ácidos del Norte"));
}

TEST_F(Buscador, ElFocoDeLaTablaSeVe) {
  qt::DialogoConceptos dialogo(conceptos, false, "", nullptr);
  Mostrar(dialogo);
  auto* tabla = dialogo.findChild<QTableView*>();
  const auto borde = [tabla] {
    const QImage vista = tabla->viewport()->grab().toImage();
    return vista.pixelColor(vista.width() / 2, vista.height() - 1);
  };
  const QColor sin = borde();
  tabla->setFocus();
  EXPECT_GE(qt::Contraste(sin, borde()), 2);
}

}  // namespace
