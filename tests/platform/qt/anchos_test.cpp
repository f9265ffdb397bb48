#include <QHelpEvent>
#include <QToolTip>

#include "platform/qt/rejilla_en_pantalla.h"
#include "qt/dibujo_celda.h"

// Widths of columns, and texts that are cut all the same.

namespace {

using pruebas::RejillaEnPantalla;

/// What is shown under the mouse when it rests on a cell.
QString Globo(QTableView& vista, const QModelIndex& celda) {
  const QPoint donde = vista.visualRect(celda).center();
  QHelpEvent pide(QEvent::ToolTip, donde, vista.viewport()->mapToGlobal(donde));
  QApplication::sendEvent(vista.viewport(), &pide);
  return QToolTip::text();
}

TEST_F(RejillaEnPantalla, UnTextoCortadoSeLeeEnteroBajoElRaton) {
  escena.marco.resize(500, 600);
  escena.Llenar(3);
  escena.form->Escritorio().Evento([this] {
    rejilla.TextMatrix(1, 0, "F-2005/000000000123 <de Ñandú>");
    rejilla.TextMatrix(2, 0, "F1");
  });
  EXPECT_EQ(Globo(vista, vista.model()->index(1, 0)), "");
  EXPECT_EQ(Globo(vista, vista.model()->index(0, 0)),
            QStringLiteral("F-2005/000000000123 &lt;de Ñandú&gt;"));
}

TEST_F(RejillaEnPantalla, DondeHaySitioLasColumnasTomanElQueSusTextosPiden) {
  const int disenado = vista.columnWidth(0);
  const auto llenar = [this] {
    escena.form->Escritorio().Evento([this] {
      rejilla.Rows = 1;
      rejilla.AnadirFila({"F-2005/000000000123", "texto", "1,00"});
    });
  };
  escena.marco.resize(9200 / 15, 600);
  llenar();
  EXPECT_EQ(vista.columnWidth(0), disenado) << "al tamaño diseñado, el ancho diseñado";
  escena.marco.resize(1300, 600);
  QCoreApplication::processEvents();
  EXPECT_GT(vista.columnWidth(0), disenado);
  EXPECT_EQ(vista.columnWidth(2), disenado) << "la que tiene bastante se queda como está";
  EXPECT_EQ(Globo(vista, vista.model()->index(0, 0)), "");
}

TEST_F(RejillaEnPantalla, UnImporteDeMillonesCabeEnSuColumna) {
  EXPECT_GE(vista.columnWidth(2),
            QFontMetrics(vista.model()->index(0, 2).data(Qt::FontRole).value<QFont>())
                    .horizontalAdvance("1.234.567,00") +
                2 * qt::DibujoCelda::kMargen);
}

}  // namespace
