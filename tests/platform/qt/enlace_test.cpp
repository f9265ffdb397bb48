#include <gmock/gmock.h>

#include <QAccessible>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

#include "platform/qt/frm_prueba.h"
#include "qt/nombres.h"

// How a screen is joined to its model, and how it comes and goes.

namespace {

using pruebas::Escena;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Enlace, CadaNombreEstaEnLosDosLados) {
  Escena escena;
  EXPECT_THAT(qt::NombresSinPareja(*escena.form, escena.Vista<QWidget>("FrmPrueba")), IsEmpty());
}

TEST(Enlace, DiceLosNombresQueFaltanEnCadaLado) {
  Escena escena;
  escena.Vista<QWidget>("TxtFecha").setObjectName("TxtOtra");
  EXPECT_THAT(qt::NombresSinPareja(*escena.form, escena.Vista<QWidget>("FrmPrueba")),
              ElementsAre("TxtFecha: no está en la pantalla", "TxtOtra: no está en el modelo"));
}

TEST(Enlace, LaPantallaLlenaElMarcoYSigueSuTamano) {
  Escena escena;
  QWidget& pantalla = escena.Vista<QWidget>("FrmPrueba");
  EXPECT_EQ(pantalla.geometry(), escena.marco.rect());
  escena.marco.resize(1000, 640);
  EXPECT_EQ(pantalla.size(), QSize(1000, 640));
}

TEST(Enlace, PintarYRedimensionarLleganAlFormularioUnaVez) {
  Escena escena;
  QTest::qWait(50);
  EXPECT_GE(escena.form->pintados, 1);
  escena.form->pintados = escena.form->redimensionados = 0;
  escena.marco.resize(800, 600);
  QTest::qWait(50);
  EXPECT_EQ(escena.form->redimensionados, 1);
  EXPECT_EQ(escena.form->pintados, 1);
}

TEST(Enlace, LosRotulosSeLeenEnterosTambienConAmpersand) {
  Escena escena;
  EXPECT_EQ(escena.Vista<QPushButton>("BotonGrabar").text(), "Grabar && salir");
}

TEST(Enlace, TodoLoQueTomaElFocoTieneNombreAccesible) {
  Escena escena;
  for (const services::Widget* modelo : escena.form->Widgets()) {
    if (!modelo->AdmiteFoco()) continue;
    QWidget& vista = escena.Vista<QWidget>(qPrintable(qt::NombreDeVista(*modelo)));
    QAccessibleInterface* accesible = QAccessible::queryAccessibleInterface(&vista);
    ASSERT_NE(accesible, nullptr);
    EXPECT_FALSE(accesible->text(QAccessible::Name).isEmpty()) << modelo->Nombre();
  }
}

TEST(Enlace, OcultarUnPanelOcultaLoQueTiene) {
  Escena escena;
  escena.form->PicPanel.Visible = false;
  EXPECT_FALSE(escena.Vista<QWidget>("TxtFecha").isVisible());
  escena.form->PicPanel.Visible = true;
  EXPECT_TRUE(escena.Vista<QWidget>("TxtFecha").isVisible());
}

TEST(Enlace, LaBarraCierraLaPantallaDesdeSuPropioBoton) {
  Escena escena;
  escena.form->TxtFecha.SetFocus();
  QTest::mouseClick(&escena.Vista<QToolButton>("cerrar"), Qt::LeftButton);
  EXPECT_FALSE(escena.form->Cargado());
  EXPECT_FALSE(escena.Vista<QWidget>("FrmPrueba").isVisible());
}

TEST(Enlace, UnErrorSinControlarNoCierraLaPantalla) {
  Escena escena;
  escena.form->BotonGrabar.Click = [] { throw services::ErrorEjecucion(13, "no es un número"); };
  QTest::mouseClick(&escena.Vista<QPushButton>("BotonGrabar"), Qt::LeftButton);
  ASSERT_EQ(escena.errores.size(), 1U);
  EXPECT_EQ(escena.errores.front().Numero(), 13);
  EXPECT_TRUE(escena.Vista<QWidget>("FrmPrueba").isVisible());
}

TEST(Enlace, LaPantallaSobreviveASuModeloMientrasTieneEventos) {
  auto escena = std::make_unique<Escena>();
  QPointer<QWidget> pantalla = &escena->Vista<QWidget>("FrmPrueba");
  QPointer<QWidget> fecha = &escena->Vista<QWidget>("TxtFecha");
  services::Escritorio& escritorio = escena->form->Escritorio();
  escritorio.Operacion([&] {
    escena->form->Unload();
    escena->form = nullptr;
  });
  ASSERT_FALSE(fecha.isNull());
  QTest::keyClick(fecha.data(), Qt::Key_1);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(pantalla.isNull());
}

TEST(Enlace, LaBarraDeProgresoSigueValoresQueNoSonEnteros) {
  Escena escena;
  auto& barra = escena.Vista<QProgressBar>("Progreso");
  escena.form->Progreso.Max = 0.5;
  escena.form->Progreso.Value = 0.125;
  EXPECT_EQ((barra.value() - barra.minimum()) * 4, barra.maximum() - barra.minimum());
  escena.form->Progreso.Value = 0.5;
  EXPECT_EQ(barra.value(), barra.maximum());
}

}  // namespace
