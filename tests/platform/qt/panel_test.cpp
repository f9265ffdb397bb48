#include "qt/panel_qt.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <ostream>

#include "platform/qt/frm_prueba.h"
#include "platform/qt/plataforma_sin_demora.h"
#include "qt/lienzo.h"
#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"

// The entry panel where the room is scarce: nothing of it is squeezed or covered.

namespace {

/// A room for the screen, and the points of the desktop's font.
struct Sitio {
  const char* Cual;
  QSize Hueco;
  double Puntos;
};

void PrintTo(const Sitio& sitio, std::ostream* salida) {
  *salida << sitio.Cual;
}

class PanelEnPoco : public testing::TestWithParam<Sitio> {
 protected:
  PanelEnPoco() {
    QFont letra = antes;
    letra.setPointSizeF(GetParam().Puntos);
    QApplication::setFont(letra);
    lienzo = std::make_unique<qt::Lienzo>(*form, qt::DisenosDeTesvara().at("FrmTesvaraGastos"));
    lienzo->resize(GetParam().Hueco);
    lienzo->show();
    panel = dynamic_cast<qt::PanelQt*>(lienzo->findChild<QWidget*>("PicNuevo"));
    panel->show();
    QCoreApplication::processEvents();
  }
  ~PanelEnPoco() override {
    lienzo->Soltar();
    lienzo = nullptr;
    QApplication::setFont(antes);
  }
  /// The widgets that lie side by side, each on a place of its own.
  [[nodiscard]] std::vector<QWidget*> Hojas() const {
    std::vector<QWidget*> hojas;
    for (QWidget* vista : panel->widget()->findChildren<QWidget*>()) {
      const QLayout* arreglo = vista->parentWidget()->layout();
      const bool deInterior = vista->objectName().startsWith("qt_");
      if (vista->isVisible() && arreglo && !deInterior && !vista->layout()) hojas.push_back(vista);
    }
    return hojas;
  }
  [[nodiscard]] QRect EnElPanel(const QWidget& vista) const {
    return {vista.mapTo(panel->widget(), QPoint()), vista.size()};
  }

  const QFont antes = QApplication::font();
  services::Plataforma plataforma = pruebas::PlataformaSinDemora();
  shell::DatosComunes datos{plataforma};
  services::Ref<shell::FrmTesvaraGastos> form = services::Crear<shell::FrmTesvaraGastos>(datos);
  std::unique_ptr<qt::Lienzo> lienzo;
  qt::PanelQt* panel = nullptr;
};

TEST_P(PanelEnPoco, NadaEsMenorDeLoQueNecesita) {
  for (const QWidget* vista : Hojas()) {
    const QSize minima = vista->minimumSizeHint().boundedTo(vista->maximumSize());
    EXPECT_GE(vista->width(), minima.width()) << vista->objectName().toStdString();
    EXPECT_GE(vista->height(), minima.height()) << vista->objectName().toStdString();
  }
}

TEST_P(PanelEnPoco, NadaTapaANadaNiSeSaleDeSuGrupo) {
  const std::vector<QWidget*> hojas = Hojas();
  EXPECT_GT(hojas.size(), 40U);
  for (auto una = hojas.begin(); una != hojas.end(); ++una) {
    EXPECT_TRUE((*una)->parentWidget()->rect().contains((*una)->geometry()))
        << (*una)->objectName().toStdString();
    for (auto otra = std::next(una); otra != hojas.end(); ++otra) {
      EXPECT_FALSE(EnElPanel(**una).intersects(EnElPanel(**otra)))
          << (*una)->objectName().toStdString() << " y " << (*otra)->objectName().toStdString();
    }
  }
}

TEST_P(PanelEnPoco, NoHaceFaltaCorrerloALosLados) {
  EXPECT_EQ(panel->horizontalScrollBar()->maximum(), 0)
      << "mide " << panel->widget()->minimumSizeHint().width() << " de " << panel->width();
  EXPECT_TRUE(lienzo->rect().contains(panel->geometry()));
}

TEST_P(PanelEnPoco, DeLaBarraDeTituloNoAsomaUnaTira) {
  const int bajoLaBarra = lienzo->findChild<QWidget*>("Barra1")->geometry().bottom() + 1;
  ASSERT_GT(bajoLaBarra, 10);
  if (panel->y() >= bajoLaBarra) return;
  EXPECT_EQ(panel->y(), 0);
  EXPECT_EQ(panel->verticalScrollBar()->maximum(), 0) << "lo que se corre cabe bajo la barra";
}

INSTANTIATE_TEST_SUITE_P(Pantallas, PanelEnPoco,
                         testing::Values(Sitio{"De1024", {1024, 690}, 9},
                                         Sitio{"De1366", {1366, 690}, 9},
                                         Sitio{"De1024PorUnoYMedio", {682, 450}, 9},
                                         Sitio{"De1366PorUnoYMedio", {910, 450}, 9},
                                         Sitio{"De1024ConLetraDeUnaVezYMedia", {1024, 690}, 13.5},
                                         Sitio{"De1366ConLetraDeUnaVezYMedia", {1366, 690}, 13.5},
                                         Sitio{"De1920Por2", {960, 490}, 9}),
                         [](const auto& sitio) { return std::string(sitio.param.Cual); });

TEST(Panel, LoQueTomaElFocoQuedaALaVista) {
  qt::PanelQt panel;
  auto* hoja = new QWidget;
  auto* columna = new QVBoxLayout(hoja);
  for (int i = 0; i < 40; ++i) columna->addWidget(new QLineEdit);
  panel.setWidget(hoja);
  panel.resize(panel.Caber({300, 200}));
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  for (const int cual : {39, 0, 20}) {
    QWidget* campo = columna->itemAt(cual)->widget();
    campo->setFocus();
    const QRect visto(campo->mapTo(panel.viewport(), QPoint()), campo->size());
    EXPECT_TRUE(panel.viewport()->rect().contains(visto)) << cual;
  }
}

}  // namespace
