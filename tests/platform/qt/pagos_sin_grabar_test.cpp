#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "platform/qt/pagos_en_pantalla.h"

// Payments that are in the cells alone: the window asks before they would be lost, and the host is
// told how many there are.

namespace {

using pruebas::kDos;
using pruebas::kUno;
using pruebas::PagosSinGrabar;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

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
  EXPECT_EQ(Pantalla().Edicion.PagosSinGrabar(), 2) << "ni se graba";
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
