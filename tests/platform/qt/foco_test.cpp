#include <gmock/gmock.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/frm_prueba.h"

// Focus by keys and clicks, and what is chosen with it.

namespace {

using pruebas::Escena;
using testing::ElementsAre;

class Foco : public testing::Test {
 protected:
  void Tab(Qt::KeyboardModifiers con = Qt::NoModifier) {
    QTest::keyClick(escena.marco.focusWidget(), con ? Qt::Key_Backtab : Qt::Key_Tab, con);
  }

  Escena escena;
};

TEST_F(Foco, ElTabuladorSigueElOrdenDelModelo) {
  std::vector<QString> visitados;
  for (int i = 0; i < 8; ++i) {
    Tab();
    visitados.push_back(escena.Enfocada());
  }
  EXPECT_THAT(visitados, ElementsAre("TxtFecha", "ChkUno", "TxtImporte", "OptA", "OptB", "Lista",
                                     "BotonGrabar", "Rejilla"));
  Tab();
  EXPECT_EQ(escena.Enfocada(), "TxtFecha");
  Tab(Qt::ShiftModifier);
  EXPECT_EQ(escena.Enfocada(), "Rejilla");
}

TEST_F(Foco, ElTabuladorMarcaLoEnfocadoYNoSeleccionaPorSuCuenta) {
  escena.form->TxtFecha.Text = "01/02/2003";
  escena.marco.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
  Tab();
  EXPECT_TRUE(escena.marco.testAttribute(Qt::WA_KeyboardFocusChange));
  QLineEdit& fecha = escena.Vista<QLineEdit>("TxtFecha");
  EXPECT_EQ(fecha.selectedText(), "");
  EXPECT_EQ(fecha.cursorPosition(), escena.form->TxtFecha.SelStart());
}

TEST_F(Foco, UnClicDaPrimeroLostFocusYLuegoGotFocus) {
  escena.form->TxtFecha.SetFocus();
  escena.form->sucesos.clear();
  QTest::mouseClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::LeftButton);
  EXPECT_THAT(escena.form->sucesos,
              ElementsAre("TxtFecha_LostFocus", "BotonGrabar_GotFocus", "BotonGrabar_Click"));
}

TEST_F(Foco, QuienSaleManoPorVolverPierdeElClicDelOtro) {
  auto& form = *escena.form;
  form.TxtFecha.SetFocus();
  form.TxtFecha.LostFocus = [&form] { form.TxtFecha.SetFocus(); };
  form.sucesos.clear();
  QTest::mouseClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::LeftButton);
  EXPECT_THAT(form.sucesos, ElementsAre("TxtFecha_GotFocus"));
  EXPECT_EQ(escena.Enfocada(), "TxtFecha");
  form.TxtFecha.LostFocus = nullptr;
}

TEST_F(Foco, CancelarNoSeLlevaElFoco) {
  escena.form->TxtFecha.SetFocus();
  escena.form->sucesos.clear();
  QTest::mouseClick(&escena.Vista<QPushButton>("BtnCancelar"), Qt::LeftButton);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("BtnCancelar_Click"));
  EXPECT_EQ(escena.Enfocada(), "TxtFecha");
}

TEST_F(Foco, OcultarLoEnfocadoNoPasaElFocoAlVecino) {
  escena.form->TxtImporte.SetFocus();
  escena.form->sucesos.clear();
  escena.form->TxtImporte.Visible = false;
  EXPECT_THAT(escena.form->sucesos, ElementsAre("TxtImporte_LostFocus"));
  EXPECT_EQ(escena.Enfocada(), "FrmPrueba");
  Tab();
  EXPECT_EQ(escena.Enfocada(), "OptA") << "sigue desde donde estaba";
}

TEST_F(Foco, SinNadieConElFocoEscapeCancela) {
  escena.form->BtnCancelar.Cancela = true;
  escena.form->TxtImporte.SetFocus();
  escena.form->TxtImporte.Enabled = false;
  escena.form->sucesos.clear();
  ASSERT_EQ(escena.Enfocada(), "FrmPrueba");
  QTest::keyClick(escena.marco.focusWidget(), Qt::Key_A);
  EXPECT_THAT(escena.form->sucesos, testing::IsEmpty());
  QTest::keyClick(escena.marco.focusWidget(), Qt::Key_Escape);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("BtnCancelar_Click"));
}

TEST_F(Foco, InhabilitarLoEnfocadoTampoco) {
  escena.form->ChkUno.SetFocus();
  escena.form->PicPanel.Enabled = false;
  EXPECT_EQ(escena.Enfocada(), "FrmPrueba");
}

TEST_F(Foco, ElFocoQueTraeElEscritorioLlegaAlModelo) {
  escena.marco.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
  escena.Vista<QLineEdit>("TxtImporte").setFocus(Qt::OtherFocusReason);
  EXPECT_TRUE(escena.form->TxtImporte.TieneFoco());
}

TEST_F(Foco, LaBarraEspaciadoraMarcaLaCasilla) {
  escena.form->ChkUno.SetFocus();
  QCheckBox& casilla = escena.Vista<QCheckBox>("ChkUno");
  escena.form->sucesos.clear();
  QTest::keyClick(&casilla, Qt::Key_Space);
  EXPECT_TRUE(escena.form->ChkUno.Value);
  EXPECT_TRUE(casilla.isChecked());
  QTest::keyClick(&casilla, Qt::Key_Space);
  EXPECT_FALSE(casilla.isChecked());
  EXPECT_THAT(escena.form->sucesos, ElementsAre("ChkUno_Click", "ChkUno_Click"));
}

TEST_F(Foco, UnClicMarcaUnaVez) {
  QCheckBox& casilla = escena.Vista<QCheckBox>("ChkUno");
  QTest::mouseClick(&casilla, Qt::LeftButton, {}, QPoint(8, casilla.height() / 2));
  EXPECT_TRUE(escena.form->ChkUno.Value);
  EXPECT_TRUE(casilla.isChecked());
}

TEST_F(Foco, DeUnGrupoHayUnaSolaOpcion) {
  QRadioButton& a = escena.Vista<QRadioButton>("OptA");
  QRadioButton& b = escena.Vista<QRadioButton>("OptB");
  QTest::mouseClick(&a, Qt::LeftButton, {}, QPoint(8, a.height() / 2));
  QTest::mouseClick(&b, Qt::LeftButton, {}, QPoint(8, b.height() / 2));
  EXPECT_FALSE(a.isChecked());
  EXPECT_TRUE(b.isChecked());
  QTest::mouseClick(&b, Qt::LeftButton, {}, QPoint(8, b.height() / 2));
  EXPECT_TRUE(b.isChecked());
}

TEST_F(Foco, LasFlechasEligenEnUnaLista) {
  escena.form->Lista.SetFocus();
  QComboBox& lista = escena.Vista<QComboBox>("Lista");
  QTest::keyClick(&lista, Qt::Key_Down);
  QTest::keyClick(&lista, Qt::Key_Down);
  EXPECT_EQ(escena.form->Lista.Text(), "dos");
  EXPECT_EQ(lista.currentText(), "dos");
}

TEST_F(Foco, LaRuedaNoCambiaUnaLista) {
  escena.form->Lista.SetFocus();
  escena.form->Lista.ListIndex = 1;
  QComboBox& lista = escena.Vista<QComboBox>("Lista");
  QWheelEvent rueda(QPointF(5, 5), lista.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&lista, &rueda);
  EXPECT_EQ(escena.form->Lista.ListIndex(), 1);
}

TEST_F(Foco, IntroPulsaElBoton) {
  escena.form->BotonGrabar.SetFocus();
  escena.form->sucesos.clear();
  QTest::keyClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::Key_Return);
  EXPECT_THAT(escena.form->sucesos, ElementsAre("BotonGrabar_Click"));
}

TEST_F(Foco, AlAbrirseLaPantallaElFocoEstaEnElPrimero) {
  QCoreApplication::processEvents();
  EXPECT_TRUE(escena.form->TxtFecha.TieneFoco());
  EXPECT_EQ(escena.Enfocada(), "TxtFecha");
}

TEST_F(Foco, AlAbrirseNoSeLeQuitaAQuienLoTiene) {
  escena.form->BotonGrabar.SetFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(escena.Enfocada(), "BotonGrabar");
}

TEST_F(Foco, LasFlechasVanDeUnaOpcionAOtraYLaEligen) {
  escena.form->OptA.SetFocus();
  QTest::keyClick(&escena.Vista<QRadioButton>("OptA"), Qt::Key_Down);
  EXPECT_EQ(escena.Enfocada(), "OptB");
  EXPECT_TRUE(escena.Vista<QRadioButton>("OptB").isChecked());
  QTest::keyClick(&escena.Vista<QRadioButton>("OptB"), Qt::Key_Right);
  EXPECT_EQ(escena.Enfocada(), "OptA");
  EXPECT_FALSE(escena.Vista<QRadioButton>("OptB").isChecked());
}

TEST_F(Foco, UnaOpcionRechazadaNoSeVeElegida) {
  escena.form->OptA.Value = true;
  escena.form->OptB.Click = [this] { escena.form->OptA.Value = true; };
  QRadioButton& b = escena.Vista<QRadioButton>("OptB");
  QTest::mouseClick(&b, Qt::LeftButton, {}, QPoint(8, b.height() / 2));
  EXPECT_FALSE(b.isChecked());
  EXPECT_TRUE(escena.Vista<QRadioButton>("OptA").isChecked());
}

/// What a screen reader does to an option.
void Encender(QWidget& opcion) {
  QAccessible::queryAccessibleInterface(&opcion)->actionInterface()->doAction(
      QAccessibleActionInterface::toggleAction());
}

TEST_F(Foco, UnLectorDePantallaEligeUnaOpcionEnElModelo) {
  escena.form->OptA.Value = true;
  escena.form->sucesos.clear();
  Encender(escena.Vista<QRadioButton>("OptB"));
  EXPECT_TRUE(escena.form->OptB.Value);
  EXPECT_FALSE(escena.form->OptA.Value);
  EXPECT_TRUE(escena.Vista<QRadioButton>("OptB").isChecked());
  EXPECT_FALSE(escena.Vista<QRadioButton>("OptA").isChecked());
  EXPECT_EQ(std::count(escena.form->sucesos.begin(), escena.form->sucesos.end(), "OptB_Click"), 1);
  EXPECT_EQ(std::count(escena.form->sucesos.begin(), escena.form->sucesos.end(), "OptA_Click"), 0);
}

TEST_F(Foco, LaQueUnLectorDePantallaNoPuedeElegirSigueApagada) {
  escena.form->OptA.Value = true;
  escena.form->OptB.Click = [this] { escena.form->OptA.Value = true; };
  Encender(escena.Vista<QRadioButton>("OptB"));
  EXPECT_TRUE(escena.Vista<QRadioButton>("OptA").isChecked());
  EXPECT_FALSE(escena.Vista<QRadioButton>("OptB").isChecked());
}

}  // namespace
