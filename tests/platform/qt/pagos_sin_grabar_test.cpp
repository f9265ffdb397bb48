#include <gmock/gmock.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "platform/qt/dia_en_pantalla.h"

// Payments that are in the cells alone: the window asks before they would be lost, and the host is
// told how many there are.

namespace {

using pruebas::DiaEnPantalla;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kUno = "Hay 1 pago sin grabar, que se perdería. ¿Grabarlo antes?";
const std::string kDos = "Hay 2 pagos sin grabar, que se perderían. ¿Grabarlos antes?";
constexpr const char* kBorrarFactura = "Pulsar 'Si' para borrar la Factura";

class FormQueCuenta final
    : public services::ObjetoContado<services::IForm, services::IPagosSinGrabar> {
 public:
  services::Rectangulo Geometria() noexcept override { return {0, 0, 15360, 11520}; }
  std::int32_t WindowState() noexcept override { return 0; }
  void PonerWindowState(std::int32_t) noexcept override {}
  void Refresh() noexcept override {}
  void* VentanaNativa() noexcept override { return nullptr; }
  void Contar(std::int32_t cuantos) noexcept override { Cuentas.push_back(cuantos); }

  std::vector<int> Cuentas;
};

/// March of 2005: rows 2, 5 and 9 are receipts to pay, row 3 is one paid in part, row 1 a forecast.
class PagosSinGrabar : public DiaEnPantalla {
 protected:
  PagosSinGrabar() {
    principal = services::Ref<services::IUnknown>(static_cast<services::IForm*>(quienCuenta.get()));
    EXPECT_EQ(jornada::Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
    Abrir();
    ventana->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(ventana));
  }
  ~PagosSinGrabar() override {
    if (!clase) return;
    // What is left of a test is not to be saved.
    if (Pantalla().Campos.PicNuevo.Visible) Boton("BtnCancelar");
    Boton("BotonCancelar");
    Cerrar();
  }

  [[nodiscard]] shell::FrmTesvaraGastos& Pantalla() const { return pantallas->Principal(); }
  [[nodiscard]] const services::MSFlexGrid& Lista() const { return Pantalla().Rejilla.MSFPagos; }
  [[nodiscard]] const std::string& Factura() const { return Lista().TextMatrix(Lista().Row, 2); }
  [[nodiscard]] std::string Enfocada() const {
    return ventana->window()->focusWidget()->objectName().toStdString();
  }
  /// By key, once a message that was closed has given the window back.
  void Ir(QWidget& vista) {
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
    vista.setFocus();
  }
  void PagarDos() {
    Celda(2, 5);
    Celda(5, 5);
  }
  /// A box or an option is pressed on its left, where its mark is.
  void Marca(const char* nombre) {
    auto& vista = Vista<QAbstractButton>(nombre);
    QTest::mouseClick(&vista, Qt::LeftButton, {}, {8, vista.height() / 2});
  }

  services::Ref<FormQueCuenta> quienCuenta = services::Crear<FormQueCuenta>();
  const std::vector<const char*> marcas = {"OptFecha", "OptConcepto", "ChkPrevisiones",
                                           "ChkPagados"};
  const std::vector<const char*> botones = {"BotonNuevo", "BotonModificar", "BotonBorrar",
                                            "BtnAutCaja"};
};

TEST_F(PagosSinGrabar, CancelarDejaTodoComoEstaba) {
  PagarDos();
  const std::string foco = Enfocada();
  for (const bool conRaton : {true, false}) {
    for (const char* nombre : marcas) {
      auto& vista = Vista<QAbstractButton>(nombre);
      const bool antes = vista.isChecked();
      if (!conRaton) Ir(vista);
      Responder(conRaton ? Qt::Key_Escape : Qt::Key_C);
      conRaton ? Marca(nombre) : QTest::keyClick(&vista, Qt::Key_Space);
      EXPECT_THAT(Mensajes(), ElementsAre(kDos)) << nombre;
      EXPECT_EQ(vista.isChecked(), antes) << nombre;
      EXPECT_EQ(Enfocada(), conRaton ? foco : nombre) << nombre;
    }
    for (const char* nombre : botones) {
      auto& vista = Vista<QPushButton>(nombre);
      if (!conRaton) Ir(vista);
      Responder(conRaton ? Qt::Key_Escape : Qt::Key_C);
      conRaton ? Boton(nombre) : QTest::keyClick(&vista, Qt::Key_Return);
      EXPECT_THAT(Mensajes(), ElementsAre(kDos)) << nombre;
      EXPECT_EQ(Enfocada(), conRaton ? foco : nombre) << nombre;
    }
  }
  EXPECT_FALSE(Pantalla().Campos.PicNuevo.Visible());
  EXPECT_TRUE(Pantalla().Lista.ChkPagados.Value());
  EXPECT_EQ(Lista().TextMatrix(2, 4), "58,00");
  EXPECT_EQ(Lista().TextMatrix(5, 4), "58,00");
  EXPECT_EQ(Lista().Row(), 5);
}

TEST_F(PagosSinGrabar, MientrasPreguntaLaCasillaSigueComoEstaba) {
  PagarDos();
  bool marcada = false;
  QTimer::singleShot(100, ventana, [&] {
    marcada = Vista<QCheckBox>("ChkPagados").isChecked();
    EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Atención");
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  Marca("ChkPagados");
  EXPECT_TRUE(marcada);
}

TEST_F(PagosSinGrabar, NoSigueYSePierden) {
  PagarDos();
  Responder(Qt::Key_N);
  Marca("ChkPrevisiones");
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_FALSE(Vista<QCheckBox>("ChkPrevisiones").isChecked());
  EXPECT_EQ(Lista().TextMatrix(1, 2), "F1");
  EXPECT_EQ(Lista().TextMatrix(1, 4), "");
  Marca("ChkPrevisiones");
  EXPECT_THAT(Mensajes(), IsEmpty()) << "ya no hay ninguno";
}

TEST_F(PagosSinGrabar, SiGrabaYSigue) {
  PagarDos();
  Responder(Qt::Key_S);
  Marca("OptConcepto");
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Vista<QRadioButton>("OptConcepto").isChecked());
  Boton("BotonCancelar");
  int pagados = 0;
  for (int fila = 1; fila < Lista().Rows; ++fila) {
    if (Lista().TextMatrix(fila, 2) == "F1") pagados += Lista().TextMatrix(fila, 4) == "58,00";
  }
  EXPECT_EQ(pagados, 2) << "también tras cargarla de lo grabado";
}

TEST_F(PagosSinGrabar, LasFlechasEntreLasOpcionesTambienPreguntan) {
  PagarDos();
  auto& porFecha = Vista<QRadioButton>("OptFecha");
  Ir(porFecha);
  Responder(Qt::Key_Escape);
  QTest::keyClick(&porFecha, Qt::Key_Down);
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(porFecha.isChecked());
  EXPECT_EQ(Enfocada(), "OptFecha");
}

TEST_F(PagosSinGrabar, LoQuePulsaUnLectorDePantallaTambienPregunta) {
  PagarDos();
  const auto hacer = [this](const char* nombre, const QString& accion) {
    auto* accesible = QAccessible::queryAccessibleInterface(&Vista<QWidget>(nombre));
    accesible->actionInterface()->doAction(accion);
    QTest::qWait(300);  // a button is seen to go down and up
  };
  Responder(Qt::Key_Escape);
  hacer("BotonNuevo", QAccessibleActionInterface::pressAction());
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  Responder(Qt::Key_Escape);
  hacer("ChkPagados", QAccessibleActionInterface::toggleAction());
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Vista<QCheckBox>("ChkPagados").isChecked());
  Responder(Qt::Key_Escape);
  hacer("OptConcepto", QAccessibleActionInterface::toggleAction());
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Vista<QRadioButton>("OptFecha").isChecked());
}

TEST_F(PagosSinGrabar, TrasGrabarSeBorraLaLineaElegida) {
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

TEST_F(PagosSinGrabar, TrasGrabarSeModificaLaLineaElegida) {
  PagarDos();
  Celda(3, 1);
  Responder(Qt::Key_S);
  Boton("BotonModificar");
  EXPECT_THAT(Mensajes(), ElementsAre(kDos));
  EXPECT_TRUE(Pantalla().Campos.PicNuevo.Visible());
  EXPECT_EQ(Pantalla().Campos.TxtNFra.Text(), "F2");
  EXPECT_EQ(Factura(), "F2");
}

TEST_F(PagosSinGrabar, UnDobleClicEnUnaPrevisionPregunta) {
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

TEST_F(PagosSinGrabar, SiLaLineaYaNoEstaSeDiceYNoPasaNada) {
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

TEST_F(PagosSinGrabar, LoQueNoSeGrabaNoSigue) {
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

TEST_F(PagosSinGrabar, ElEditorAbiertoSigueAbiertoAlCancelar) {
  DobleCelda(5, 4);
  auto& editor = Vista<QLineEdit>("TxtMsf");
  QTest::keyClicks(&editor, "20,5");
  Responder(Qt::Key_Escape);
  Marca("ChkPagados");
  EXPECT_THAT(Mensajes(), ElementsAre(kUno));
  EXPECT_TRUE(editor.isVisible());
  EXPECT_EQ(editor.text(), "20,5");
  EXPECT_EQ(Enfocada(), "TxtMsf");
  QTest::keyClicks(&editor, "0");
  EXPECT_EQ(editor.text(), "20,50") << "se sigue donde se estaba";
  Responder(Qt::Key_S);
  Marca("ChkPagados");
  EXPECT_THAT(Mensajes(), ElementsAre(kUno));
  EXPECT_FALSE(Vista<QCheckBox>("ChkPagados").isChecked());
  EXPECT_EQ(Lista().TextMatrix(2, 4), "20,50") << "pagada en parte, se sigue viendo";
}

TEST_F(PagosSinGrabar, SinPagosNoSePregunta) {
  for (const char* nombre : marcas) Marca(nombre);
  for (const char* nombre : {"BotonNuevo", "BotonModificar"}) {
    Boton(nombre);
    EXPECT_TRUE(Pantalla().Campos.PicNuevo.Visible());
    Boton("BtnCancelar");
  }
  EXPECT_THAT(Mensajes(), IsEmpty());
}

TEST_F(PagosSinGrabar, NiAlGrabarNiAlCancelar) {
  PagarDos();
  Boton("BotonCancelar");
  Celda(2, 5);
  Boton("BotonAceptar");
  EXPECT_THAT(Mensajes(), IsEmpty());
}

TEST_F(PagosSinGrabar, UnaFechaQueSeDejaPreguntaEllaSola) {
  PagarDos();
  auto& hasta = Vista<QLineEdit>("TxtFPrevision");
  const auto teclear = [&hasta](const char* fecha) {
    QTest::mouseClick(&hasta, Qt::LeftButton);
    hasta.selectAll();
    QTest::keyClicks(&hasta, fecha);
  };
  teclear("3/4/2005");
  Responder(Qt::Key_N);
  Marca("ChkPrevisiones");
  EXPECT_THAT(Mensajes(), ElementsAre(StartsWith("Si Modifica las fechas")));
  EXPECT_FALSE(Vista<QCheckBox>("ChkPrevisiones").isChecked());

  // What it couldn't save is asked about all the same.
  Marca("ChkPrevisiones");
  DobleCelda(5, 4);
  QTest::keyClicks(&Vista<QLineEdit>("TxtMsf"), "999");
  Celda(2, 3);
  teclear("4/4/2005");
  Responder({Qt::Key_S, Qt::Key_Return, Qt::Key_Escape});
  Marca("ChkPrevisiones");
  EXPECT_THAT(Mensajes(), ElementsAre(StartsWith("Si Modifica las fechas"),
                                      StartsWith("El Importe Pagado no puede"), kUno));
  EXPECT_TRUE(Vista<QCheckBox>("ChkPrevisiones").isChecked());
}

TEST_F(PagosSinGrabar, LoQueYaNoSeAlcanzaAlContestarNoSigue) {
  PagarDos();
  QTimer::singleShot(100, ventana, [this] {
    Pantalla().Lista.ChkPagados.Enabled = false;
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_S);
  });
  Marca("ChkPagados");
  EXPECT_TRUE(Pantalla().Lista.ChkPagados.Value());
  EXPECT_EQ(Pantalla().Precaucion()->Cuantos(), 2) << "ni se graba";
}

TEST_F(PagosSinGrabar, AlAnfitrionSeLeDiceCuantosHay) {
  std::vector<int>& cuentas = quienCuenta->Cuentas;
  EXPECT_THAT(cuentas, IsEmpty());
  PagarDos();
  EXPECT_THAT(cuentas, ElementsAre(1, 2));
  Celda(2, 5);
  EXPECT_THAT(cuentas, ElementsAre(1, 2, 1)) << "devuelto";
  Celda(3, 1);
  EXPECT_EQ(clase->Ocultar(), services::hr::Bien);
  EXPECT_EQ(clase->Cargar(contexto), services::hr::Bien);
  EXPECT_THAT(cuentas, ElementsAre(1, 2, 1)) << "oculta, los conserva";
  Boton("BotonAceptar");
  EXPECT_THAT(cuentas, ElementsAre(1, 2, 1, 0)) << "grabado";
  Celda(2, 5);
  Boton("BotonCancelar");
  EXPECT_THAT(cuentas, ElementsAre(1, 2, 1, 0, 1, 0)) << "cancelado";
}

TEST_F(PagosSinGrabar, AlCerrarseLaPantallaNoQuedaNinguno) {
  PagarDos();
  Responder(Qt::Key_N);
  Cerrar();
  EXPECT_THAT(quienCuenta->Cuentas, ElementsAre(1, 2, 0));
}

}  // namespace
