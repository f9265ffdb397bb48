#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>
#include <QAccessible>
#include <QGuiApplication>

#include "platform/qt/rejilla_en_pantalla.h"

// What a screen reader hears of the grid.

namespace {

using pruebas::RejillaEnPantalla;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// What was told to the screen reader: the sort of each event and the name of what it was about.
struct Dicho {
  QAccessible::Event Suceso;
  std::string Nombre;
};

std::vector<Dicho> dichos;

void Oir(QAccessibleEvent* suceso) {
  const QAccessibleInterface* que = suceso->accessibleInterface();
  if (que) dichos.push_back({suceso->type(), que->text(QAccessible::Name).toStdString()});
}

/// As when a screen reader is there.
void Escuchar(bool escucha) {
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(escucha);
  QAccessible::installUpdateHandler(escucha ? &Oir : nullptr);
}

class RejillaQueSeOye : public RejillaEnPantalla {
 protected:
  RejillaQueSeOye() {
    escena.Llenar(3);
    escena.marco.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&escena.marco));
    Escuchar(true);
    dichos.clear();
  }
  ~RejillaQueSeOye() override { Escuchar(false); }
  /// The names in the events of one sort.
  [[nodiscard]] static std::vector<std::string> Nombres(QAccessible::Event suceso) {
    std::vector<std::string> nombres;
    for (const Dicho& dicho : dichos) {
      if (dicho.Suceso == suceso) nombres.push_back(dicho.Nombre);
    }
    return nombres;
  }
  void Mover(int fila, int columna) {
    escena.form->Escritorio().Evento([&] { rejilla.MoverA(fila, columna); });
  }
};

TEST_F(RejillaQueSeOye, MarcarLaCeldaActualSeDice) {
  vista.setFocus();
  Mover(1, 2);
  dichos.clear();
  escena.form->Escritorio().Evento([this] { rejilla.CellPicture = "check"; });
  EXPECT_THAT(Nombres(QAccessible::NameChanged), ElementsAre("Marcado"));
  dichos.clear();
  escena.form->Escritorio().Evento([this] {
    rejilla.CellPicture = "";
    rejilla.TextMatrix(1, 2, "");
  });
  EXPECT_THAT(Nombres(QAccessible::NameChanged), ElementsAre("Sin marcar"));
}

TEST_F(RejillaQueSeOye, UnCambioEnOtraCeldaNoSeDice) {
  vista.setFocus();
  Mover(1, 2);
  dichos.clear();
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 2, "otra"); });
  EXPECT_THAT(Nombres(QAccessible::NameChanged), IsEmpty());
}

TEST_F(RejillaQueSeOye, SinElFocoNoSeAnunciaSuCeldaActual) {
  vista.setFocus();
  escena.Vista<QLineEdit>("TxtFecha").setFocus();
  dichos.clear();
  Mover(2, 1);
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 1, "otro"); });
  EXPECT_THAT(Nombres(QAccessible::Focus), IsEmpty());
  EXPECT_THAT(Nombres(QAccessible::NameChanged), IsEmpty());
  vista.setFocus();
  EXPECT_THAT(Nombres(QAccessible::Focus), Contains("otro")) << "al volver se anuncia";
}

TEST_F(RejillaQueSeOye, ConElFocoSeAnunciaCadaCeldaQueEsLaActual) {
  vista.setFocus();
  dichos.clear();
  Mover(2, 1);
  EXPECT_THAT(Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(2, 1)));
}

TEST_F(RejillaQueSeOye, EnUnaColumnaOcultaSeAnunciaLaPrimeraQueSeVe) {
  vista.setFocus();
  dichos.clear();
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(2, 3, "oculta"); });
  Mover(2, 3);
  EXPECT_THAT(Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(2, 0)));
  escena.marco.resize(300, 400);
  vista.horizontalScrollBar()->setValue(vista.horizontalScrollBar()->maximum());
  dichos.clear();
  Mover(3, 3);
  EXPECT_THAT(Nombres(QAccessible::Focus), ElementsAre(rejilla.TextMatrix(3, 0)))
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
