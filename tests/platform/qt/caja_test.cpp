#include <gmock/gmock.h>

#include <QAccessible>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <cstdio>
#include <set>
#include <stdexcept>

#include "jornada/partida.h"
#include "platform/qt/dia_en_pantalla.h"
#include "platform/qt/oido.h"
#include "qt/lienzo.h"
#include "qt/nombres.h"
#include "qt/seleccion_qt.h"

// Both cash screens as a user has them.

namespace {

using jornada::Partida;
using testing::Contains;
using testing::IsEmpty;

/// So many cash entries of one concept, a minute from each other.
std::string Apuntes(int cuantos) {
  return R"(
datos INSERT INTO ProvConceptos VALUES('400','Luz'),('401','Agua')
datos WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i < )" +
         std::to_string(cuantos - 1) +
         R"() INSERT INTO CajaPagos (idSucursal,FechaHora,Tipo,Importe,Observaciones) SELECT '1', datetime('2005-03-01 10:00:00', '+'||i||' minutes'), 400, 1, 'Apunte '||i FROM n
)";
}

class EnPantalla : public pruebas::DiaEnPantalla {
 protected:
  void AbrirCon(const std::string& datos) {
    ASSERT_EQ(Partida(opciones).Jugar(datos).Errores, "");
    Abrir();
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
  }
  /// Presses that button, which opens a screen, and does that in it once it is there.
  template <class Accion>
  void Dentro(const char* boton, Accion accion) {
    constexpr int kIntentos = 500;
    int intentos = 0;
    bool hecho = false;
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, &espera, [&] {
      auto* lienzo = dynamic_cast<qt::Lienzo*>(QApplication::activeModalWidget());
      const bool lista = lienzo && lienzo->isActiveWindow();
      if (!lista && ++intentos < kIntentos) return;
      espera.stop();
      if (!lienzo) return;
      QTest::qWait(20);
      modal = lienzo;
      if (lista) accion();
      hecho = lista;
      if (!modal || !modal->isVisible()) return;
      ADD_FAILURE() << "sigue abierta";
      Modelo().Hide();
    });
    espera.start(10);
    Boton(boton);
    EXPECT_TRUE(hecho);
    QTest::qWait(20);
  }
  template <class W>
  [[nodiscard]] W& En(const QString& nombre) const {
    auto* vista = modal->findChild<W*>(nombre);
    if (!vista) throw std::logic_error("no está " + nombre.toStdString());
    return *vista;
  }
  [[nodiscard]] services::Form& Modelo() const { return *modal->Formulario(); }
  template <class W>
  [[nodiscard]] W& ModeloDe(const char* nombre) const {
    return dynamic_cast<W&>(*Modelo().Buscar(nombre));
  }
  [[nodiscard]] std::string Foco() const {
    const QWidget* foco = QApplication::focusWidget();
    return foco ? foco->objectName().toStdString() : "";
  }
  /// Of the screen behind, which the desktop may not have made the active one again.
  [[nodiscard]] std::string FocoDetras() const {
    const QWidget* foco = ventana->window()->focusWidget();
    return foco ? foco->objectName().toStdString() : "";
  }
  void Pulsa(Qt::Key tecla, int veces = 1) const {
    for (int i = 0; i < veces; ++i) QTest::keyClick(QApplication::focusWidget(), tecla);
  }

  QPointer<qt::Lienzo> modal;
};

class CajaEnPantalla : public EnPantalla {
 protected:
  /// An entry of the concept with entries.
  void Empezar(int apuntes) {
    AbrirCon(Apuntes(apuntes));
    Boton("BotonNuevo");
    QTest::keyClicks(QApplication::focusWidget(), "400");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }
  void Cancelar() {
    Boton("BtnCancelar");
    Cerrar();
  }
  [[nodiscard]] qt::SeleccionQt& Fila(int i) const {
    return dynamic_cast<qt::SeleccionQt&>(En<QLabel>("LblSeleccion_" + QString::number(i)));
  }
  [[nodiscard]] bool ALaVista(int i) const {
    const QWidget& visor = *En<QWidget>("PicScroll").parentWidget();
    const QRect fila(Fila(i).mapTo(&visor, QPoint()), Fila(i).size());
    return visor.rect().contains(fila);
  }
};

TEST_F(CajaEnPantalla, SusNombresEstanEnLosDosLados) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_THAT(qt::NombresSinPareja(Modelo(), *modal), IsEmpty());
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, LasFilasEstanUnaBajoOtraDondeDiceElModelo) {
  Empezar(15);
  Dentro("BotonCaja", [this] {
    for (int i = 0; i < 15; ++i) {
      const QString n = QString::number(i);
      const QWidget& fecha = En<QWidget>("LblTxt_" + n);
      const QWidget& texto = En<QWidget>("LblTxt2_" + n);
      EXPECT_EQ(fecha.isVisibleTo(modal), i < 12) << i;  // those on sight, one of them in part
      EXPECT_GE(texto.y(), fecha.geometry().bottom()) << i;
      EXPECT_TRUE(Fila(i).geometry().contains(fecha.geometry())) << i;
      EXPECT_TRUE(Fila(i).geometry().contains(texto.geometry())) << i;
      EXPECT_GE(fecha.height(), fecha.fontMetrics().height()) << i;
      if (i == 0) continue;
      EXPECT_GT(Fila(i).y(), Fila(i - 1).geometry().bottom()) << i;
    }
    EXPECT_TRUE(ALaVista(0));
    EXPECT_FALSE(ALaVista(14));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, EsUnDialogoConSuTituloYElFocoALaVistaDesdeElPrincipio) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_EQ(modal->windowTitle(), "Apuntes de Caja");
    EXPECT_FALSE(En<QWidget>("Barra1").isVisible()) << "el escritorio ya dice lo mismo";
    EXPECT_TRUE(modal->testAttribute(Qt::WA_KeyboardFocusChange));
    QAccessibleInterface* dialogo = QAccessible::queryAccessibleInterface(modal);
    EXPECT_EQ(dialogo->role(), QAccessible::Dialog);
    EXPECT_EQ(dialogo->text(QAccessible::Name), "Apuntes de Caja");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, SeRecorreConSuBarraConLaRuedaYConTeclas) {
  Empezar(40);
  Dentro("BotonCaja", [this] {
    auto& barra = En<QScrollBar>("VScroll1");
    EXPECT_EQ(barra.maximum(), 30);
    // To the end: the last row at the bottom.
    barra.setValue(barra.maximum());
    EXPECT_TRUE(ALaVista(39));
    EXPECT_EQ(ModeloDe<services::PictureBox>("PicScroll").Top, 555 - (40 * 540 + 360 - 6400));
    barra.setValue(0);
    EXPECT_TRUE(ALaVista(0));
    const QPoint centro = En<QWidget>("PicScroll").mapToGlobal(QPoint(50, 50));
    QWheelEvent rueda(QPointF(50, 50), centro, QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&En<QWidget>("PicScroll"), &rueda);
    EXPECT_EQ(ModeloDe<services::VScrollBar>("VScroll1").Value, 3);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    Pulsa(Qt::Key_PageDown);
    EXPECT_EQ(Foco(), "LblSeleccion_11");
    Pulsa(Qt::Key_End);
    EXPECT_EQ(Foco(), "LblSeleccion_39");
    EXPECT_TRUE(ALaVista(39));
    Pulsa(Qt::Key_Up, 20);
    EXPECT_EQ(Foco(), "LblSeleccion_19");
    EXPECT_TRUE(ALaVista(19));
    Pulsa(Qt::Key_Home);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    EXPECT_TRUE(ALaVista(0));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, CadaFilaSeAlcanzaDesdeLaBarraPorMuchasQueSean) {
  Empezar(500);
  Dentro("BotonCaja", [this] {
    auto& barra = En<QScrollBar>("VScroll1");
    std::vector<int> nunca;
    std::vector<bool> vistas(500);
    for (int v = 0; v <= barra.maximum(); ++v) {
      barra.setValue(v);
      for (int i = std::max(0, v - 2); i < std::min(500, v + 14); ++i) {
        if (ALaVista(i)) vistas[static_cast<std::size_t>(i)] = true;
      }
    }
    for (int i = 0; i < 500; ++i) {
      if (!vistas[static_cast<std::size_t>(i)]) nunca.push_back(i);
    }
    EXPECT_THAT(nunca, IsEmpty());
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, UnaObservacionDeVariasLineasSeLeeEnUna) {
  AbrirCon(Apuntes(1) +
           "datos UPDATE CajaPagos SET Observaciones = 'Línea uno' || char(10) || 'dos'\n");
  Boton("BotonNuevo");
  QTest::keyClicks(QApplication::focusWidget(), "400");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  Dentro("BotonCaja", [this] {
    EXPECT_EQ(En<QLabel>("LblTxt2_0").text(), "Línea uno dos");
    EXPECT_EQ(ModeloDe<services::Label>("LblTxt2(0)").Caption, "Línea uno\ndos");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, ElEspacioYElRatonMarcanYElLectorLoOye) {
  Empezar(3);
  const pruebas::Oido oido;
  Dentro("BotonCaja", [&] {
    const auto estado = [this](int i) {
      return QAccessible::queryAccessibleInterface(&Fila(i))->state();
    };
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    EXPECT_FALSE(estado(0).checked);
    Pulsa(Qt::Key_Space);
    EXPECT_TRUE(estado(0).checked);
    EXPECT_THAT(oido.Nombres(QAccessible::StateChanged),
                Contains("Fecha:01/03/2005 10:00:00, Apunte 0"));
    QTest::mouseClick(&Fila(2), Qt::LeftButton);
    EXPECT_TRUE(estado(2).checked);
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    QAccessibleInterface* otra = QAccessible::queryAccessibleInterface(&Fila(1));
    EXPECT_EQ(otra->role(), QAccessible::CheckBox);
    EXPECT_TRUE(otra->state().checkable);
    otra->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(estado(1).checked);
    EXPECT_TRUE(ModeloDe<services::Shape>("DivSel(1)").Visible);
    Pulsa(Qt::Key_Tab);
    EXPECT_EQ(Foco(), "BtnFacturar");
    Pulsa(Qt::Key_Return);
  });
  EXPECT_EQ(FocoDetras(), "BotonCaja");
  EXPECT_EQ(Vista<QLineEdit>("TxtIFra").text(), "3,00");
  Cancelar();
}

TEST_F(CajaEnPantalla, SeCierraConEscapeYConElBotonDeLaVentanaComoConSalir) {
  Empezar(3);
  Dentro("BotonCaja", [this] {
    EXPECT_FALSE(modal->windowFlags() & Qt::WindowCloseButtonHint);
    Pulsa(Qt::Key_Space);
    modal->close();
    EXPECT_FALSE(modal->isVisible());
  });
  // Hidden, it keeps the mark and the row with the focus.
  Dentro("BotonCaja", [this] {
    EXPECT_TRUE(Fila(0).Marcada());
    EXPECT_EQ(Foco(), "LblSeleccion_0");
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

TEST_F(CajaEnPantalla, MilFilasSeAbrenYSeVuelvenAAbrir) {
  Empezar(1000);
  QElapsedTimer reloj;
  reloj.start();
  Dentro("BotonCaja", [&] {
    std::printf("[ medida ] de pulsar a verse 1000 filas: %lld ms\n",
                static_cast<long long>(reloj.elapsed()));
    EXPECT_TRUE(ALaVista(0));
    reloj.restart();
    Pulsa(Qt::Key_End);
    modal->repaint();
    std::printf("[ medida ] hasta la última: %lld ms\n", static_cast<long long>(reloj.elapsed()));
    EXPECT_TRUE(ALaVista(999));
    Pulsa(Qt::Key_Escape);
  });
  reloj.restart();
  Dentro("BotonCaja", [&] {
    std::printf("[ medida ] y otra vez: %lld ms\n", static_cast<long long>(reloj.elapsed()));
    EXPECT_EQ(Foco(), "LblSeleccion_999");
    EXPECT_TRUE(ALaVista(999));
    Pulsa(Qt::Key_Escape);
  });
  Cancelar();
}

class AutomaticasEnPantalla : public EnPantalla {};

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
