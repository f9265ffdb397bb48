#include "platform/qt/oido.h"
#include "platform/qt/rejilla_en_pantalla.h"

// What a screen reader hears of the grid.

namespace {

using pruebas::RejillaEnPantalla;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class RejillaQueSeOye : public RejillaEnPantalla {
 protected:
  RejillaQueSeOye() {
    escena.Llenar(3);
    escena.marco.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
  }
  void Mover(int fila, int columna) {
    escena.form->Escritorio().Evento([&] { rejilla.MoverA(fila, columna); });
  }

  pruebas::Oido oido;
};

TEST_F(RejillaQueSeOye, MarcarLaCeldaActualSeDice) {
  vista.setFocus();
  Mover(1, 2);
  pruebas::Oido::Olvidar();
  escena.form->Escritorio().Evento([this] { rejilla.CellPicture = "check"; });
  EXPECT_THAT(oido.Nombres(QAccessible::NameChanged), ElementsAre("Marcado"));
  pruebas::Oido::Olvidar();
  escena.form->Escritorio().Evento([this] {
    rejilla.CellPicture = "";
    rejilla.TextMatrix(1, 2, "");
  });
  EXPECT_THAT(oido.Nombres(QAccessible::NameChanged), ElementsAre("Sin marcar"));
}

TEST_F(RejillaQueSeOye, UnCambioEnOtraCeldaNoSeDice) {
  vista.setFocus();
  Mover(1, 2);
  pruebas::Oido::Olvidar();
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 2, "otra"); });
  EXPECT_THAT(oido.Nombres(QAccessible::NameChanged), IsEmpty());
}

TEST_F(RejillaQueSeOye, SinElFocoNoSeAnunciaSuCeldaActual) {
  vista.setFocus();
  escena.Vista<QLineEdit>("TxtFecha").setFocus();
  pruebas::Oido::Olvidar();
  Mover(2, 1);
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 1, "otro"); });
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), IsEmpty());
  EXPECT_THAT(oido.Nombres(QAccessible::NameChanged), IsEmpty());
  vista.setFocus();
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), Contains("otro")) << "al volver se anuncia";
}

TEST_F(RejillaQueSeOye, ConElFocoSeAnunciaCadaCeldaQueEsLaActual) {
  vista.setFocus();
  pruebas::Oido::Olvidar();
  Mover(2, 1);
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(2, 1)));
}

TEST_F(RejillaQueSeOye, EnUnaColumnaOcultaSeAnunciaLaPrimeraQueSeVe) {
  vista.setFocus();
  pruebas::Oido::Olvidar();
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 3, "oculta"); });
  Mover(2, 3);
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(2, 0)));
  escena.marco.resize(300, 400);
  vista.horizontalScrollBar()->setValue(vista.horizontalScrollBar()->maximum());
  pruebas::Oido::Olvidar();
  Mover(3, 3);
  EXPECT_THAT(oido.Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(3, 0)))
      << "también con la lista corrida a un lado";
}

TEST_F(RejillaEnPantalla, UnaCeldaSinMarcarLoDice) {
  escena.Llenar(2);
  escena.form->Escritorio().Evento([this] {
    rejilla.MoverA(1, 3);
    rejilla.CellPicture = "check";
  });
  const auto nombre = [this](int fila, int columna) {
    return vista.model()->index(fila, columna).data(Qt::AccessibleTextRole).toString();
  };
  EXPECT_EQ(nombre(0, 3), "Marcado");
  EXPECT_EQ(nombre(1, 3), "Sin marcar");
  EXPECT_EQ(nombre(1, 1).toStdString(), rejilla.TextMatrix(2, 1));
}

}  // namespace
