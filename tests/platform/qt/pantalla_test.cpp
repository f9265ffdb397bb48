#include <gmock/gmock.h>

#include <QAccessible>
#include <QComboBox>
#include <QTableView>

#include "platform/qt/frm_prueba.h"
#include "platform/qt/plataforma_sin_demora.h"
#include "qt/lienzo.h"
#include "qt/nombres.h"
#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"

// The component's own screen against its model.

namespace {

using testing::IsEmpty;

class PantallaDePagos : public testing::Test {
 protected:
  PantallaDePagos() { Rehacer(); }
  ~PantallaDePagos() override { lienzo->Soltar(); }

  /// Shows the form as it is now: one that isn't loaded tells no window of its changes.
  void Rehacer() {
    if (lienzo) lienzo->Soltar();
    lienzo = std::make_unique<qt::Lienzo>(*form, qt::DisenosDeTesvara().at("FrmTesvaraGastos"));
    lienzo->resize(1024, 700);
  }

  services::Plataforma plataforma = pruebas::PlataformaSinDemora();
  shell::DatosComunes datos{plataforma};
  services::Ref<shell::FrmTesvaraGastos> form = services::Crear<shell::FrmTesvaraGastos>(datos);
  std::unique_ptr<qt::Lienzo> lienzo;
};

TEST_F(PantallaDePagos, CadaNombreEstaEnLosDosLados) {
  EXPECT_THAT(qt::NombresSinPareja(*form, *lienzo), IsEmpty());
}

TEST_F(PantallaDePagos, CadaControlTieneQuienLoMuestre) {
  for (const services::Widget* modelo : form->Widgets()) {
    EXPECT_NE(lienzo->De(*modelo), nullptr) << modelo->Nombre();
  }
}

QString Nombre(QWidget& vista) {
  return QAccessible::queryAccessibleInterface(&vista)->text(QAccessible::Name);
}

TEST_F(PantallaDePagos, TodoTieneNombreAccesible) {
  form->BtnAutCaja.Caption = "Fra.Autom.Caja";
  Rehacer();
  for (const services::Widget* modelo : form->Widgets()) {
    auto* vista = lienzo->findChild<QWidget*>(QString::fromStdString(modelo->Nombre()));
    ASSERT_NE(vista, nullptr) << modelo->Nombre();
    EXPECT_FALSE(Nombre(*vista).isEmpty()) << modelo->Nombre();
  }
}

TEST_F(PantallaDePagos, LoQueSeLeeEsLoQueSeDice) {
  for (services::Widget* modelo : form->Widgets()) {
    auto* rotulado = dynamic_cast<services::ConCaption*>(modelo);
    if (rotulado) rotulado->Caption = modelo->Nombre() + ": 1.234,50";
  }
  Rehacer();
  for (const services::Widget* modelo : form->Widgets()) {
    const auto* rotulado = dynamic_cast<const services::ConCaption*>(modelo);
    // What it reads are three dots.
    if (!rotulado || modelo->Nombre() == "CmdCon") continue;
    EXPECT_EQ(Nombre(*lienzo->findChild<QWidget*>(QString::fromStdString(modelo->Nombre())))
                  .toStdString(),
              rotulado->Caption());
  }
}

TEST_F(PantallaDePagos, LoQueNoTienePalabrasLasTieneParaElLector) {
  const auto nombre = [this](const char* cual) {
    return Nombre(*lienzo->findChild<QWidget*>(cual));
  };
  EXPECT_EQ(nombre("CmdCon"), "Buscar concepto");
  EXPECT_EQ(nombre("CboPlazo"), "Plazo");
  form->Campos.CboPlazo.ListIndex = 1;
  Rehacer();
  EXPECT_EQ(nombre("CboPlazo"), "Plazo: Meses");
}

TEST_F(PantallaDePagos, LaListaDePlazosDiceSusElementosYSeAbre) {
  auto* vista = lienzo->findChild<QComboBox*>("CboPlazo");
  form->Campos.CboPlazo.Enabled = true;
  vista->setEnabled(true);
  auto* lista = QAccessible::queryAccessibleInterface(vista);
  EXPECT_EQ(lista->role(), QAccessible::ComboBox);
  ASSERT_EQ(lista->childCount(), 1);
  EXPECT_EQ(lista->child(0)->childCount(), 3);
  EXPECT_EQ(lista->indexOfChild(lista->child(0)), 0);
  EXPECT_FALSE(lista->state().expanded);
  lienzo->show();
  lienzo->findChild<QWidget*>("PicNuevo")->show();
  lista->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(lista->state().expanded);
  vista->hidePopup();
}

TEST_F(PantallaDePagos, ElPanelSeDiceComoSuTitulo) {
  EXPECT_EQ(Nombre(*lienzo->findChild<QWidget*>("PicNuevo")), "Nueva Tesvara");
  form->Campos.TitularModificacion();
  Rehacer();
  EXPECT_EQ(Nombre(*lienzo->findChild<QWidget*>("PicNuevo")), "Modificar Tesvara");
}

TEST_F(PantallaDePagos, UnaLineaNoSeDiceComoElGrupoEnQueEsta) {
  for (const char* nombre : {"lineaIrpf", "lineaOrden", "lineaFiltros"}) {
    auto* linea = QAccessible::queryAccessibleInterface(lienzo->findChild<QWidget*>(nombre));
    EXPECT_EQ(linea->role(), QAccessible::Separator) << nombre;
    EXPECT_EQ(linea->text(QAccessible::Name), "") << nombre;
    EXPECT_TRUE(linea->relations().isEmpty()) << nombre;
  }
}

TEST_F(PantallaDePagos, LoDelAnfitrionSeDiceComoSiempre) {
  QFrame linea;
  linea.setFrameShape(QFrame::HLine);
  EXPECT_NE(QAccessible::queryAccessibleInterface(&linea)->role(), QAccessible::Separator);
}

TEST_F(PantallaDePagos, UnaCeldaDeMarcaDiceDesdeElPrincipioQueNoLaTiene) {
  services::MSFlexGrid& recibos = form->Campos.MSFVencimientos;
  recibos.Rows = 3;
  recibos.TextMatrix(1, 0, "22/12/2026");
  Rehacer();
  const auto* tabla = lienzo->findChild<QTableView*>("MSFVencimientos");
  const auto dice = [tabla](int fila, int columna) {
    return tabla->model()->index(fila, columna).data(Qt::AccessibleTextRole).toString();
  };
  EXPECT_EQ(dice(0, 3), "Sin marcar");
  EXPECT_EQ(dice(0, 2), "");
  EXPECT_EQ(dice(1, 3), "") << "una fila sin fecha aún no es un recibo";
}

TEST_F(PantallaDePagos, LosDosOrdenesSeAnuncianComoOpciones) {
  for (const char* nombre : {"OptFecha", "OptConcepto"}) {
    auto* opcion = QAccessible::queryAccessibleInterface(lienzo->findChild<QWidget*>(nombre));
    EXPECT_EQ(opcion->role(), QAccessible::RadioButton) << nombre;
  }
}

TEST_F(PantallaDePagos, LaCopiaDeLaListaNoEstaALaVista) {
  lienzo->show();
  auto* copia = QAccessible::queryAccessibleInterface(lienzo->findChild<QWidget*>("MsfPagos2"));
  EXPECT_TRUE(copia->state().invisible);
}

TEST_F(PantallaDePagos, ElEditorDePagosEstaEnElArbolDeAccesibilidad) {
  form->Edicion.TxtMsf.Visible = true;
  Rehacer();
  lienzo->show();
  auto* editor = QAccessible::queryAccessibleInterface(lienzo->findChild<QWidget*>("TxtMsf"));
  auto* panel = QAccessible::queryAccessibleInterface(lienzo->findChild<QWidget*>("PicPagos"));
  EXPECT_GE(panel->indexOfChild(editor), 0);
  EXPECT_FALSE(editor->state().invisible);
}

TEST_F(PantallaDePagos, CabeEnUnaPantallaDe1024ConLetraDeUnaVezYMedia) {
  const QFont antes = QApplication::font();
  QFont grande = antes;
  grande.setPointSizeF(13.5);
  QApplication::setFont(grande);
  form->BtnAutCaja.Caption = "Fra.Autom.Caja";
  form->Rejilla.LblPendiente.Caption = "Total Pendiente: 1.234.567,89";
  Rehacer();
  EXPECT_LE(lienzo->minimumSizeHint().width(), 1024);
  EXPECT_LE(lienzo->minimumSizeHint().height(), 620);
  QApplication::setFont(antes);
}

TEST_F(PantallaDePagos, CabeEnUnaPantallaAlDobleDeEscala) {
  // What a screen of 1920 by 1080 has at 200 %, less the title bar, menu and status bar of a host.
  EXPECT_LE(lienzo->minimumSizeHint().width(), 960);
  EXPECT_LE(lienzo->minimumSizeHint().height(), 440);
}

TEST_F(PantallaDePagos, ElPanelDeGrabacionQuedaEnElCentroYEncimaDeTodo) {
  lienzo->show();
  auto* panel = lienzo->findChild<QWidget*>("PicTexto");
  panel->show();
  EXPECT_EQ(lienzo->childAt(panel->geometry().topLeft() + QPoint(3, 3)), panel);
  EXPECT_LE((panel->geometry().center() - lienzo->rect().center()).manhattanLength(), 2);
  EXPECT_GE(panel->width(), panel->sizeHint().width());
}

}  // namespace
