#include <gmock/gmock.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <set>

#include "platform/qt/pantalla_modal.h"
#include "qt/nombres.h"

// The automatic invoices as a user has them.

namespace {

using pruebas::Apuntes;
using testing::IsEmpty;

class AutomaticasEnPantalla : public pruebas::PantallaModal {};

TEST_F(AutomaticasEnPantalla, SusNombresEstanEnLosDosLados) {
  AbrirCon(Apuntes(3));
  Dentro("BtnAutCaja", [this] {
    EXPECT_THAT(qt::NombresSinPareja(Modelo(), *modal), IsEmpty());
    Pulsa(Qt::Key_Escape);
  });
  Cerrar();
}

TEST_F(AutomaticasEnPantalla, TieneSuTituloSobreSuBarra) {
  AbrirCon(Apuntes(3));
  Dentro("BtnAutCaja", [this] {
    EXPECT_EQ(modal->windowTitle(), "Facturas Automaticas");
    EXPECT_TRUE(En<QWidget>("Barra1").isVisible());
    EXPECT_EQ(En<QWidget>("Barra1").accessibleName(), "Fra. Automáticas de Caja");
    EXPECT_TRUE(En<QLabel>("LblFecha2").isEnabled()) << "se lee aunque las fechas no cuenten";
    EXPECT_FALSE(ModeloDe<services::Label>("LblFecha2").Enabled);
    Pulsa(Qt::Key_Escape);
  });
  Cerrar();
}

TEST_F(AutomaticasEnPantalla, DeTeclaEnTeclaHastaGenerar) {
  AbrirCon(Apuntes(3));
  Dentro("BtnAutCaja", [this] {
    EXPECT_EQ(Foco(), "OptTodo");
    Pulsa(Qt::Key_Down);
    EXPECT_EQ(Foco(), "OptConcepto");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "TxtConcepto");
    QTest::keyClicks(QApplication::focusWidget(), "400");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(En<QLineEdit>("TxtConcepto").text(), "Luz");
    EXPECT_EQ(Foco(), "CmdCon");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "lblFecha");
    EXPECT_FALSE(En<QLineEdit>("CbxFDesde").isEnabled());
    Pulsa(Qt::Key_Space);
    EXPECT_TRUE(En<QLineEdit>("CbxFDesde").isEnabled());
    QAccessibleInterface* fechas = QAccessible::queryAccessibleInterface(&En<QLabel>("lblFecha"));
    EXPECT_EQ(fechas->text(QAccessible::Name), "Fechas");
    EXPECT_TRUE(fechas->state().checked);
    Pulsa(Qt::Key_Space);
    EXPECT_FALSE(fechas->state().checked);
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "TxtFFra");
    Pulsa(Qt::Key_Return, 2);
    EXPECT_EQ(Foco(), "CboIVA");
    Pulsa(Qt::Key_Down);
    EXPECT_EQ(En<QComboBox>("CboIVA").currentText(), "16%");
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "BtnAceptar");
    Pulsa(Qt::Key_Return);
  });
  EXPECT_EQ(FocoDetras(), "BtnAutCaja");
  auto& lista = Vista<QTableView>("MSFPagos");
  EXPECT_EQ(lista.model()->index(0, 2).data().toString(), "02/2005");
  EXPECT_EQ(lista.model()->index(0, 3).data().toString(), "3,00");
  Responder(Qt::Key_N);
  Cerrar();
}

TEST_F(AutomaticasEnPantalla, LoQueEsMasAnchoQueLaVentanaSeVeDesdeSuPrincipio) {
  AbrirCon(Apuntes(3));
  Dentro("BtnAutCaja", [this] {
    modal->resize(260, 420);
    QTest::qWait(20);
    Pulsa(Qt::Key_Tab, 2);
    EXPECT_EQ(Foco(), "lblFecha");
    auto& hoja = En<QScrollArea>("hoja");
    const QWidget& fechas = En<QWidget>("lblFecha");
    EXPECT_GT(fechas.width(), hoja.viewport()->width());
    EXPECT_EQ(fechas.mapTo(hoja.viewport(), QPoint()).x(), 0);
    Pulsa(Qt::Key_Escape);
  });
  Cerrar();
}

TEST_F(AutomaticasEnPantalla, LaBarraAvanzaMientrasSeGenera) {
  AbrirCon(Apuntes(3) +
           "datos INSERT INTO CajaPagos (idSucursal,FechaHora,Tipo,Importe) VALUES "
           "('1','2005-03-01 10:00:00',401,5)\n");
  Dentro("BtnAutCaja", [this] {
    struct Pintadas : QObject {
      QList<int> valores;
      bool eventFilter(QObject* objeto, QEvent* evento) override {
        auto* barra = qobject_cast<QProgressBar*>(objeto);
        if (evento->type() == QEvent::Paint) valores.append(barra->value());
        return false;
      }
    } pintadas;
    En<QProgressBar>("ProgressBar").installEventFilter(&pintadas);
    QTest::mouseClick(&En<QPushButton>("BtnAceptar"), Qt::LeftButton);
    EXPECT_GE(std::set<int>(pintadas.valores.begin(), pintadas.valores.end()).size(), 2U);
    EXPECT_FALSE(modal && modal->isVisible());
  });
  Responder(Qt::Key_N);
  Cerrar();
}

TEST_F(AutomaticasEnPantalla, ElBotonDeLaVentanaLaCierra) {
  AbrirCon(Apuntes(3));
  Dentro("BtnAutCaja", [this] {
    modal->close();
    EXPECT_FALSE(modal && modal->isVisible());
  });
  EXPECT_EQ(FocoDetras(), "BtnAutCaja");
  Cerrar();
}

}  // namespace
