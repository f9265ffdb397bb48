#include <gmock/gmock.h>

#include <QAccessible>

#include "platform/qt/frm_prueba.h"
#include "qt/lienzo.h"
#include "qt/nombres.h"
#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"

// The component's own screen against its model.

namespace {

using testing::IsEmpty;

class PantallaDePagos : public testing::Test {
 protected:
  PantallaDePagos() { lienzo.resize(1024, 700); }
  ~PantallaDePagos() override { lienzo.Soltar(); }

  services::Plataforma plataforma = qt::CrearPlataforma();
  shell::DatosComunes datos{plataforma};
  services::Ref<shell::FrmTesvaraGastos> form = services::Crear<shell::FrmTesvaraGastos>(datos);
  qt::Lienzo lienzo{*form, qt::DisenosDeTesvara().at("FrmTesvaraGastos")};
};

TEST_F(PantallaDePagos, CadaNombreEstaEnLosDosLados) {
  EXPECT_THAT(qt::NombresSinPareja(*form, lienzo), IsEmpty());
}

TEST_F(PantallaDePagos, CadaControlTieneQuienLoMuestre) {
  for (const services::Widget* modelo : form->Widgets()) {
    EXPECT_NE(lienzo.De(*modelo), nullptr) << modelo->Nombre();
  }
}

TEST_F(PantallaDePagos, TodoTieneNombreAccesible) {
  for (const services::Widget* modelo : form->Widgets()) {
    auto* vista = lienzo.findChild<QWidget*>(QString::fromStdString(modelo->Nombre()));
    ASSERT_NE(vista, nullptr) << modelo->Nombre();
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(vista)->text(QAccessible::Name).isEmpty())
        << modelo->Nombre();
  }
}

TEST_F(PantallaDePagos, ElEditorDePagosEstaSobreLaLista) {
  auto* editor = lienzo.findChild<QWidget*>("TxtMsf");
  auto* lista = lienzo.findChild<QTableView*>("MSFPagos");
  EXPECT_EQ(editor->parentWidget(), lista->viewport());
}

TEST_F(PantallaDePagos, CabeEnUnaPantallaAlDobleDeEscala) {
  // What a screen of 1920 by 1080 has at 200 %, less the title bar, menu and status bar of a host.
  EXPECT_LE(lienzo.minimumSizeHint().width(), 960);
  EXPECT_LE(lienzo.minimumSizeHint().height(), 440);
}

TEST_F(PantallaDePagos, ElPanelDeGrabacionQuedaEnElCentroYEncimaDeTodo) {
  lienzo.show();
  auto* panel = lienzo.findChild<QWidget*>("PicTexto");
  panel->show();
  EXPECT_EQ(lienzo.childAt(panel->geometry().topLeft() + QPoint(3, 3)), panel);
  EXPECT_LE((panel->geometry().center() - lienzo.rect().center()).manhattanLength(), 2);
  EXPECT_GE(panel->width(), panel->sizeHint().width());
}

}  // namespace
