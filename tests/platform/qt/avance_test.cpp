#include "qt/avance_qt.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "qt/textos_qt.h"

namespace {

QProgressDialog* Caja() {
  return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
}

TEST(Avance, UnTrabajoCortoNoSeVe) {
  qt::AvanceQt avance("Preparando el informe");
  for (int i = 1; i <= 5000; ++i) EXPECT_TRUE(avance.SeguirSiToca(i, 5000));
  EXPECT_EQ(Caja(), nullptr);
}

TEST(Avance, UnoLargoDicePorDondeVaYSePuedeDejar) {
  qt::AvanceQt avance("Preparando el informe");
  EXPECT_TRUE(avance.SeguirSiToca(1, 5000));
  QTest::qSleep(550);
  EXPECT_TRUE(avance.SeguirSiToca(1200, 5000));
  ASSERT_NE(Caja(), nullptr);
  EXPECT_EQ(qt::Utf8(Caja()->labelText()), "Preparando el informe: 1.200 de 5.000 líneas");
  EXPECT_EQ(Caja()->value(), 1200);
  EXPECT_EQ(Caja()->maximum(), 5000);
  EXPECT_EQ(Caja()->windowModality(), Qt::ApplicationModal);

  // Not for every row: the windows would take longer than the work.
  EXPECT_TRUE(avance.SeguirSiToca(1201, 5000));
  EXPECT_EQ(Caja()->value(), 1200);
  QTest::qSleep(60);
  EXPECT_TRUE(avance.SeguirSiToca(1300, 5000));
  EXPECT_EQ(Caja()->value(), 1300);

  auto* dejar = Caja()->findChild<QPushButton*>();
  ASSERT_NE(dejar, nullptr);
  EXPECT_EQ(dejar->text(), "Cancelar");
  QTest::mouseClick(dejar, Qt::LeftButton);
  EXPECT_FALSE(avance.SeguirSiToca(1301, 5000));
  EXPECT_EQ(Caja(), nullptr);
}

TEST(Avance, EscapeTambienLoDeja) {
  qt::AvanceQt avance("Preparando el informe");
  QTest::qSleep(550);
  EXPECT_TRUE(avance.SeguirSiToca(5000, 5000));
  ASSERT_NE(Caja(), nullptr);
  QTest::keyClick(Caja(), Qt::Key_Escape);
  EXPECT_FALSE(avance.SeguirSiToca(5000, 5000));
}

}  // namespace
