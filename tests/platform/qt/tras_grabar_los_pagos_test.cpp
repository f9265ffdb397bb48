#include <QCheckBox>
#include <QLineEdit>

#include "platform/qt/pagos_en_pantalla.h"

// What becomes of the line that was meant once the payments that would have been lost are saved.

namespace {

using pruebas::kDos;
using pruebas::kUno;
using TrasGrabarLosPagos = pruebas::PagosSinGrabar;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* kBorrarFactura = "Pulsar 'Si' para borrar la Factura";

TEST_F(TrasGrabarLosPagos, TrasGrabarSeBorraLaLineaElegida) {
  PagarDos();
  Celda(9, 3);
  Responder({Qt::Key_S, Qt::Key_N});
  Boton("BotonBorrar");
  EXPECT_THAT(Mensajes(), ElementsAre(kDos, StartsWith(kBorrarFactura)));
  std::vector<std::string> quedan;
  for (int fila = 1; fila < Lista().Rows; ++fila) {
    if (!Lista().TextMatrix(fila, 2).empty()) quedan.push_back(Lista().TextMatrix(fila, 2));
  }
  EXPECT_THAT(quedan, ElementsAre("F1", "F2", "F1", "F3")) << "F4 no está";
  EXPECT_EQ(Lista().TextMatrix(2, 4), "58,00");
}

TEST_F(TrasGrabarLosPagos, TrasGrabarSeModificaLaLineaElegida) {
  PagarDos();
  Celda(3, 1);
  Responder(Qt::Key_S);
  Boton("BotonModificar");
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Pantalla().Campos.PicNuevo.Visible());
  EXPECT_EQ(Pantalla().Campos.TxtNFra.Text(), "F2");
  EXPECT_EQ(Factura(), "F2");
}

TEST_F(TrasGrabarLosPagos, UnDobleClicEnUnaPrevisionPregunta) {
  PagarDos();
  Responder(Qt::Key_Escape);
  DobleCelda(1, 4);
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_FALSE(Pantalla().Campos.PicNuevo.Visible());
  auto& lista = Vista<QTableView>("MSFPagos");
  for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_5}) {
    Responder(Qt::Key_Escape);
    QTest::keyClick(&lista, tecla);
    EXPECT_THAT(Mensajes(), ElementsAre(kDos));
    EXPECT_FALSE(Pantalla().Campos.PicNuevo.Visible());
  }
  Responder(Qt::Key_S);
  DobleCelda(1, 4);
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Pantalla().Campos.PicNuevo.Visible());
  EXPECT_EQ(Pantalla().Campos.TxtConcepto.Text(), "Alquiler");
}

TEST_F(TrasGrabarLosPagos, SiLaLineaYaNoEstaSeDiceYNoPasaNada) {
  // With the paid ones left out only what is paid in part shows.
  Marca("ChkPagados");
  Celda(1, 5);
  Responder({Qt::Key_S, Qt::Key_Return});
  Boton("BotonBorrar");
  EXPECT_THAT(Mensajes(),
              ElementsAre(kUno, StartsWith("Se ha grabado, pero la línea elegida ya no está")));
  Marca("ChkPagados");
  EXPECT_EQ(Lista().TextMatrix(3, 2), "F2");
  EXPECT_EQ(Lista().TextMatrix(3, 4), "232,00");
}

TEST_F(TrasGrabarLosPagos, LoQueNoSeGrabaNoSigue) {
  DobleCelda(5, 4);
  QTest::keyClicks(&Vista<QLineEdit>("TxtMsf"), "999");
  Celda(2, 3);
  Responder({Qt::Key_S, Qt::Key_Return});
  Marca("ChkPagados");
  EXPECT_THAT(Mensajes(),
              ElementsAre(kUno, "El Importe Pagado no puede ser mayor que el Importe del Recibo"));
  EXPECT_TRUE(Vista<QCheckBox>("ChkPagados").isChecked());
  EXPECT_EQ(Lista().TextMatrix(5, 4), "999,00");
}

}  // namespace
