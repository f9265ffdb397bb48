#pragma once

#include <gmock/gmock.h>

#include <QScrollBar>

#include "platform/qt/frm_prueba.h"

namespace pruebas {

/// The test screen's grid, with a wide second column and the last one hidden.
class RejillaEnPantalla : public testing::Test {
 protected:
  RejillaEnPantalla() {
    for (int c = 0; c < 3; ++c) rejilla.ColWidth(c, c == 1 ? 6000 : 1600);
    rejilla.ColWidth(3, 0);
  }
  [[nodiscard]] QPoint Centro(int fila, int columna) const {
    return vista.visualRect(vista.model()->index(fila - 1, columna)).center();
  }
  void Pulsar(int fila, int columna) {
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, Centro(fila, columna));
  }
  [[nodiscard]] QString Dato(int fila, int columna) const {
    return vista.model()->index(fila - 1, columna).data().toString();
  }

  Escena escena;
  services::MSFlexGrid& rejilla = escena.form->Rejilla;
  qt::RejillaQt& vista = escena.Vista<qt::RejillaQt>("Rejilla");
};

}  // namespace pruebas
