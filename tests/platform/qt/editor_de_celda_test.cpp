#include "qt/editor_de_celda.h"

#include <QLineEdit>
#include <QWheelEvent>

#include "platform/qt/rejilla_en_pantalla.h"

// The in-place editor of the grid.

namespace {

using pruebas::RejillaEnPantalla;

TEST_F(RejillaEnPantalla, ElEditorCubreLaCeldaYSigueElDesplazamiento) {
  escena.Llenar(200);
  Pulsar(5, 2);
  escena.form->TxtCelda.Visible = true;
  QLineEdit& editor = escena.Vista<QLineEdit>("TxtCelda");
  const auto enLaTabla = [&] {
    return QRect(vista.viewport()->mapFromGlobal(editor.mapToGlobal(QPoint())), editor.size());
  };
  const auto celda = [this] { return vista.visualRect(vista.model()->index(4, 2)); };
  const auto cubre = [&] { return enLaTabla().adjusted(-1, -1, 1, 1).contains(celda()); };
  EXPECT_TRUE(editor.isVisible());
  EXPECT_TRUE(cubre());
  vista.verticalScrollBar()->setValue(3);
  EXPECT_TRUE(cubre());
  vista.verticalScrollBar()->setValue(100);
  EXPECT_TRUE(editor.isVisible()) << "oculto perdería el foco";
  EXPECT_TRUE(editor.visibleRegion().isEmpty());
}

TEST_F(RejillaEnPantalla, LoQueSeTecleaFueraDeLaVistaVuelveAEntrarEnElla) {
  escena.Llenar(200);
  Pulsar(5, 2);
  escena.form->TxtCelda.Visible = true;
  escena.form->TxtCelda.SetFocus();
  vista.verticalScrollBar()->setValue(100);
  QTest::keyClick(&escena.Vista<QLineEdit>("TxtCelda"), Qt::Key_7);
  EXPECT_TRUE(vista.viewport()->rect().contains(Centro(5, 2)));
  EXPECT_FALSE(escena.Vista<QLineEdit>("TxtCelda").visibleRegion().isEmpty());
}

TEST_F(RejillaEnPantalla, LaRuedaSobreElEditorDesplazaLaLista) {
  escena.Llenar(200);
  Pulsar(5, 2);
  escena.form->TxtCelda.Visible = true;
  QLineEdit& editor = escena.Vista<QLineEdit>("TxtCelda");
  QWheelEvent rueda(QPointF(5, 5), editor.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&editor, &rueda);
  EXPECT_GT(vista.verticalScrollBar()->value(), 0);
}

TEST_F(RejillaEnPantalla, QuienEmpiezaAEscribirAbreElEditorDeLaCelda) {
  escena.Llenar(5);
  Pulsar(2, 1);
  auto& editor = escena.form->TxtCelda;
  rejilla.DblClick = [&] {
    editor.Text = "viejo";
    editor.Visible = true;
    editor.SetFocus();
    editor.SeleccionarTodo();
  };
  QTest::keyClick(&vista, Qt::Key_7);
  EXPECT_EQ(editor.Text, "7");
}

TEST_F(RejillaEnPantalla, ElEditorSeLlamaComoLaColumna) {
  escena.Llenar(5);
  QLineEdit& editor = escena.Vista<QLineEdit>("TxtCelda");
  Pulsar(2, 1);
  escena.form->TxtCelda.Visible = true;
  EXPECT_EQ(editor.accessibleName(), "Columna 1");
  Pulsar(2, 2);
  EXPECT_EQ(editor.accessibleName(), "Columna 2");
}

}  // namespace
