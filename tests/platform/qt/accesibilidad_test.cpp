#include <QAccessible>

#include "platform/qt/rejilla_en_pantalla.h"

// What a screen reader hears of the grid.

namespace {

using pruebas::RejillaEnPantalla;

TEST_F(RejillaEnPantalla, UnaCeldaSinMarcarLoDice) {
  escena.Llenar(2);
  escena.form->Escritorio().Evento([this] {
    rejilla.MoverA(1, 3);
    rejilla.CellPicture = "check";
  });
  const auto descripcion = [this](int fila, int columna) {
    return vista.model()->index(fila, columna).data(Qt::AccessibleDescriptionRole).toString();
  };
  EXPECT_EQ(descripcion(0, 3), "");
  EXPECT_EQ(descripcion(1, 3), "Sin marcar");
  EXPECT_EQ(descripcion(1, 1), "");
}

}  // namespace
