#include <QPaintEvent>

#include "platform/qt/rejilla_en_pantalla.h"

// What of the grid is painted anew as its current cell moves.

namespace {

/// Gathers what is painted of a widget.
class LoPintado final : public QObject {
 public:
  explicit LoPintado(QWidget& vista) { vista.installEventFilter(this); }
  QRegion Region;

  bool eventFilter(QObject*, QEvent* evento) override {
    if (evento->type() == QEvent::Paint) Region += static_cast<QPaintEvent*>(evento)->region();
    return false;
  }
};

class RejillaPintada : public pruebas::RejillaEnPantalla {
 protected:
  RejillaPintada() {
    escena.Llenar(40);
    escena.marco.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
    vista.setFocus();
    Mover(2, 1);
    QCoreApplication::processEvents();
    pintado.Region = {};
  }
  void Mover(int fila, int columna) {
    escena.form->Escritorio().Evento([&] { rejilla.MoverA(fila, columna); });
  }
  [[nodiscard]] QRegion Fila(int fila) const {
    const QRect alto(0, vista.rowViewportPosition(fila - 1), vista.viewport()->width(),
                     vista.rowHeight(fila - 1));
    return alto & vista.viewport()->rect();
  }
  /// Whether the whole of it was painted since the last move.
  [[nodiscard]] bool Pintada(const QRegion& parte) {
    QCoreApplication::processEvents();
    return (parte - pintado.Region).isEmpty();
  }

  LoPintado pintado{*vista.viewport()};
};

TEST_F(RejillaPintada, LaFilaQueSeDejaYLaQueLlegaSePintanEnteras) {
  Mover(5, 1);
  EXPECT_TRUE(Pintada(Fila(2)));
  EXPECT_TRUE(Pintada(Fila(5)));
  EXPECT_FALSE(Pintada(Fila(4))) << "y las demás no";
}

TEST_F(RejillaPintada, DeVariosPasosCuentanElPrimeroYElUltimo) {
  Mover(5, 1);
  ASSERT_TRUE(Pintada(Fila(5)));
  pintado.Region = {};
  escena.form->Escritorio().Evento([this] {
    rejilla.Row = 9;
    rejilla.Row = 3;
  });
  EXPECT_TRUE(Pintada(Fila(5)));
  EXPECT_TRUE(Pintada(Fila(3)));
}

TEST_F(RejillaPintada, AlCorrerLaListaElMarcoDelFocoNoDejaRastro) {
  vista.verticalScrollBar()->setValue(4);
  EXPECT_TRUE(Pintada(vista.viewport()->rect()));
}

}  // namespace
