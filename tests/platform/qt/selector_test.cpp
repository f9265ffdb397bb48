#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "platform/qt/dia_en_pantalla.h"

// The concept search of the window, over the connection that the host hands out.

namespace {

class SelectorEnPantalla : public pruebas::DiaEnPantalla {
 protected:
  SelectorEnPantalla() {
    EXPECT_EQ(jornada::Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
    Abrir();
    Boton("BotonNuevo");
  }
  ~SelectorEnPantalla() override {
    Boton("BtnCancelar");
    Cerrar();
  }
  /// What is done to the search once it is on sight.
  template <class Hacer>
  void AlAbrirse(const Hacer& hacer) {
    QTimer::singleShot(50, ventana, [hacer] {
      auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialogo, nullptr);
      hacer(*dialogo);
    });
  }
};

TEST_F(SelectorEnPantalla, ParteDelNombreAbreLaBusquedaYEnterLoElige) {
  auto& concepto = Vista<QLineEdit>("TxtConcepto");
  concepto.setFocus();
  QTest::keyClicks(&concepto, "and");
  AlAbrirse([](QDialog& dialogo) {
    EXPECT_EQ(dialogo.findChild<QLineEdit*>()->text(), "and");
    QTest::keyClick(&dialogo, Qt::Key_Return);
  });
  QTest::keyClick(&concepto, Qt::Key_Return);
  EXPECT_EQ(concepto.text(), QString::fromUtf8("Ñandú, S.A."));
}

TEST_F(SelectorEnPantalla, ElBotonLaAbreConTodos) {
  int hay = 0;
  AlAbrirse([&hay](QDialog& dialogo) {
    hay = dialogo.findChild<QTableView*>()->model()->rowCount();
    QTest::keyClick(&dialogo, Qt::Key_Escape);
  });
  Boton("CmdCon");
  EXPECT_EQ(hay, 3);
}

}  // namespace
