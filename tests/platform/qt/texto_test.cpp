#include <gmock/gmock.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

#include "platform/qt/frm_prueba.h"
#include "qt/textos_qt.h"
#include "sorvex/utiles_sorvex.h"
#include "valores/fecha.h"

// Text boxes under real keys and clicks.

namespace {

using pruebas::Escena;
using testing::Contains;

class CajaDeTexto : public testing::Test {
 protected:
  CajaDeTexto() {
    QTest::mouseClick(&fecha, Qt::LeftButton);
    escena.form->sucesos.clear();
  }
  /// The keys of a date field, as the screens filter them.
  void FiltrarFechas() {
    escena.form->TxtFecha.KeyPress = [this](int& tecla) {
      tecla = utiles.TeclaFecha(escena.form->TxtFecha, tecla);
    };
  }

  Escena escena;
  sorvex::Utiles utiles{[] { return std::string("ANA"); }, [] { return services::FechaHora{}; }};
  QLineEdit& fecha = escena.Vista<QLineEdit>("TxtFecha");
};

TEST_F(CajaDeTexto, LoTecleadoLlegaAlModeloYSeVe) {
  for (const QChar letra : QStringLiteral("Año ñu")) {
    QTest::sendKeyEvent(QTest::Click, &fecha, Qt::Key_unknown, QString(letra), Qt::NoModifier);
  }
  EXPECT_EQ(escena.form->TxtFecha.Text(), "Año ñu");
  EXPECT_EQ(fecha.text(), "Año ñu");
  EXPECT_THAT(escena.form->sucesos, Contains("TxtFecha_Change Añ"));
}

TEST_F(CajaDeTexto, UnaFechaSeTecleaConSusBarrasPuestas) {
  FiltrarFechas();
  QTest::keyClicks(&fecha, "15a032005");
  EXPECT_EQ(fecha.text(), "15/03/2005");
}

TEST_F(CajaDeTexto, UnaTeclaConsumidaNoSeVe) {
  escena.form->TxtFecha.KeyPress = [](int& tecla) {
    if (tecla == 'x') tecla = 0;
  };
  QTest::keyClicks(&fecha, "axb");
  EXPECT_EQ(fecha.text(), "ab");
}

TEST_F(CajaDeTexto, BorrarSuprimirYLasFlechasVanPorElModelo) {
  QTest::keyClicks(&fecha, "abcd");
  QTest::keyClick(&fecha, Qt::Key_Backspace);
  QTest::keyClick(&fecha, Qt::Key_Left);
  QTest::keyClick(&fecha, Qt::Key_Left);
  QTest::keyClick(&fecha, Qt::Key_Delete);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "ac");
  EXPECT_EQ(fecha.cursorPosition(), 1);
  EXPECT_EQ(escena.form->TxtFecha.SelStart(), 1);
}

TEST_F(CajaDeTexto, LaSeleccionCreceHaciaAtrasSinPerderSuSentido) {
  QTest::keyClicks(&fecha, "abcdef");
  for (int i = 0; i < 3; ++i) QTest::keyClick(&fecha, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(fecha.selectedText(), "def");
  EXPECT_EQ(escena.form->TxtFecha.SelStart(), 3);
  EXPECT_EQ(escena.form->TxtFecha.SelLength(), 3);
  QTest::keyClick(&fecha, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(fecha.selectedText(), "ef");
}

TEST_F(CajaDeTexto, LoQueSeleccionaElModeloSeSustituyeAlTeclear) {
  escena.form->TxtFecha.Text = "01/02/2003";
  escena.form->TxtFecha.SeleccionarTodo();
  EXPECT_EQ(fecha.selectedText(), "01/02/2003");
  QTest::keyClicks(&fecha, "9");
  EXPECT_EQ(fecha.text(), "9");
}

TEST_F(CajaDeTexto, PegarCortarYDeshacerPasanPorElModelo) {
  QTest::keyClicks(&fecha, "ab");
  QTest::keyClick(&fecha, Qt::Key_Left);
  QApplication::clipboard()->setText("1\n2");
  QTest::keySequence(&fecha, QKeySequence::Paste);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "a1 2b");
  EXPECT_EQ(fecha.cursorPosition(), 4);
  QTest::keySequence(&fecha, QKeySequence::SelectAll);
  QTest::keySequence(&fecha, QKeySequence::Cut);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "");
  EXPECT_EQ(QApplication::clipboard()->text(), "a1 2b");
  QTest::keySequence(&fecha, QKeySequence::Undo);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "a1 2b");
  QTest::keySequence(&fecha, QKeySequence::Undo);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "ab");
  QTest::keySequence(&fecha, QKeySequence::Redo);
  EXPECT_EQ(fecha.text(), "a1 2b");
}

TEST_F(CajaDeTexto, ElMetodoDeEntradaEscribeEnElModelo) {
  QTest::keyClicks(&fecha, "ab");
  QInputMethodEvent composicion("´", {});
  QApplication::sendEvent(&fecha, &composicion);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "ab");
  QInputMethodEvent fin;
  fin.setCommitString("á");
  QApplication::sendEvent(&fecha, &fin);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "abá");
  EXPECT_EQ(fecha.text(), "abá");
}

TEST_F(CajaDeTexto, LoQuePoneUnLectorDePantallaPasaPorElModelo) {
  escena.form->TxtFecha.Change = [this] {
    if (escena.form->TxtFecha.Text() == "mal") escena.form->TxtFecha.Text = "bien";
  };
  fecha.setText("mal");
  EXPECT_EQ(escena.form->TxtFecha.Text(), "bien");
  EXPECT_EQ(fecha.text(), "bien");
}

TEST_F(CajaDeTexto, LaComaDelTecladoNumericoNoPasaPorElIdioma) {
  escena.form->TxtFecha.KeyPress = [this](int& tecla) {
    tecla = utiles.TeclaImporte(escena.form->TxtFecha, tecla, false);
  };
  QTest::keyClicks(&fecha, "12");
  QTest::keyClick(&fecha, '.', Qt::KeypadModifier);
  QTest::keyClicks(&fecha, "5");
  EXPECT_EQ(fecha.text(), "12,5");
}

TEST_F(CajaDeTexto, UnAtajoNoEscribe) {
  QTest::keyClick(&fecha, Qt::Key_G, Qt::ControlModifier);
  QTest::keyClick(&fecha, Qt::Key_G, Qt::AltModifier);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "");
}

TEST_F(CajaDeTexto, ElClicQueTraeElFocoGuardaLoSeleccionado) {
  escena.form->TxtImporte.Text = "12,50";
  escena.form->TxtImporte.GotFocus = [this] { escena.form->TxtImporte.SeleccionarTodo(); };
  QLineEdit& importe = escena.Vista<QLineEdit>("TxtImporte");
  QTest::mouseClick(&importe, Qt::LeftButton);
  EXPECT_EQ(importe.selectedText(), "12,50");
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  QTest::mouseClick(&importe, Qt::LeftButton);
  EXPECT_EQ(importe.selectedText(), "");
}

TEST_F(CajaDeTexto, ElMenuHablaEnCastellano) {
  QStringList rotulos;
  QTimer::singleShot(0, [&rotulos] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return;
    for (const QAction* accion : menu->actions()) {
      EXPECT_TRUE(accion->shortcut().isEmpty()) << "el escritorio la nombraría a su manera";
      if (!accion->isSeparator()) rotulos << accion->text();
    }
    menu->close();
  });
  QContextMenuEvent pide(QContextMenuEvent::Mouse, QPoint(5, 5), fecha.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&fecha, &pide);
  EXPECT_EQ(rotulos, QStringList({"Deshacer\tCtrl+Z", "Rehacer\tCtrl+Mayús+Z", "Cortar\tCtrl+X",
                                  "Copiar\tCtrl+C", "Pegar\tCtrl+V", "Eliminar\tSupr",
                                  "Seleccionar todo\tCtrl+A"}));
}

TEST_F(CajaDeTexto, LoPegadoSeCortaEnLoQueCabe) {
  escena.form->TxtFecha.MaxLength = 5;
  QTest::keyClicks(&fecha, "ab");
  QTest::keyClick(&fecha, Qt::Key_Left);
  QApplication::clipboard()->setText("12345");
  QTest::keySequence(&fecha, QKeySequence::Paste);
  EXPECT_EQ(escena.form->TxtFecha.Text(), "a123b") << "y lo que había detrás se queda";
  QTest::keyClicks(&fecha, "x");
  EXPECT_EQ(fecha.text(), "a123b");
}

TEST_F(CajaDeTexto, UnaCajaBloqueadaSeCopiaYNoSeCambia) {
  escena.form->TxtFecha.Text = "fijo";
  escena.form->TxtFecha.Locked = true;
  EXPECT_TRUE(fecha.isReadOnly());
  QTest::keyClicks(&fecha, "x");
  QApplication::clipboard()->setText("otro");
  QTest::keySequence(&fecha, QKeySequence::Paste);
  QTest::keySequence(&fecha, QKeySequence::SelectAll);
  QTest::keySequence(&fecha, QKeySequence::Cut);
  EXPECT_EQ(fecha.text(), "fijo");
  QTest::keySequence(&fecha, QKeySequence::SelectAll);
  QTest::keySequence(&fecha, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), "fijo");
  EXPECT_EQ(escena.form->TxtFecha.Text(), "fijo");
  escena.form->TxtFecha.Locked = false;
  EXPECT_FALSE(fecha.isReadOnly());
}

TEST(Conversion, CuentaCaracteresYNoUnidades) {
  const QString texto = QString::fromUtf8("a😀b");
  EXPECT_EQ(qt::Unidades(texto, 2), 3);
  EXPECT_EQ(qt::Caracteres(texto, 3), 2);
  EXPECT_EQ(qt::Unidades(texto, 99), 4);
}

}  // namespace
