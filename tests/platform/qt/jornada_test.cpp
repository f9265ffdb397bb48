#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <memory>

#include "apoyo/componente_en_marcha.h"
#include "guion/carpeta_temporal.h"
#include "jornada/partida.h"
#include "qt/plataforma_qt.h"
#include "sorvex/utiles_sorvex.h"
#include "sqlite/conexion_sqlite.h"

// A working day with keys and mouse alone, on the real screen.

namespace {

using jornada::Partida;

/// The same day as the keys and clicks below, for the runner.
const std::string kDia = R"(
responder no si
cargar
celda MSFPagos 2 5
doble MSFPagos 5 4
teclear TxtMsf "20,50"
tecla Intro
tecla Escape
celda MSFPagos 3 5
celda MSFPagos 3 5
celda MSFPagos 9 3
pulsar BotonBorrar
pulsar BotonAceptar
celda MSFPagos 5 5
teclear TxtFPrevision "30/04/2005"
pulsar OptConcepto
celda MSFPagos 1 5
pulsar BotonAceptar
cerrar
)";

class DiaEnPantalla : public testing::Test {
 protected:
  DiaEnPantalla() {
    opciones.Datos = (carpeta.Ruta() / "datos.sqlite").string();
    opciones.Local = (carpeta.Ruta() / "local.sqlite").string();
    plataforma.Ahora = [] { return services::HacerFecha(2005, 3, 15, 10, 0, 0); };
    plataforma.Pantalla = [] { return services::MedidaPantalla{15360, 11520}; };
    plataforma.CrearUtiles = &sorvex::CrearUtiles;
    plataforma.ErrorNoControlado = [](const services::ErrorEjecucion& fallo) {
      ADD_FAILURE() << fallo.Descripcion();
    };
  }

  void Abrir() {
    sesion = std::make_unique<shell::DatosComunes>(plataforma);
    pantallas = std::make_unique<shell::Pantallas>(*sesion);
    clase = services::Crear<shell::ClassTesvara>(*sesion, *pantallas);
    contexto = services::Ref<services::IDatosClase>(services::Crear<apoyo::ContextoDeAnfitrion>(
        services::Ref<services::Conexion>(sqlite::AbrirConexion(opciones.Datos)),
        services::Ref<services::Conexion>(sqlite::AbrirConexion(opciones.Local))));
    ASSERT_EQ(clase->Cargar(contexto), services::hr::Bien) << clase->Descripcion();
    ventana = static_cast<QWidget*>(pantallas->Principal().VentanaNativa());
    ASSERT_NE(ventana, nullptr);
    ventana->resize(1024, 700);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ventana));
  }
  void Cerrar() {
    EXPECT_EQ(clase->Cerrar(), services::hr::Bien);
    QCoreApplication::processEvents();
    // The session lets go of the files: the working one belongs to whoever opens it next.
    clase = nullptr;
    contexto = nullptr;
    sesion = nullptr;
  }

  template <class W>
  [[nodiscard]] W& Vista(const char* nombre) const {
    return *ventana->findChild<W*>(nombre);
  }
  [[nodiscard]] QPoint Centro(int fila, int columna) const {
    auto& lista = Vista<QTableView>("MSFPagos");
    return lista.visualRect(lista.model()->index(fila - 1, columna)).center();
  }
  void Celda(int fila, int columna) {
    QTest::mouseClick(Vista<QTableView>("MSFPagos").viewport(), Qt::LeftButton, {},
                      Centro(fila, columna));
  }
  void DobleCelda(int fila, int columna) {
    auto* donde = Vista<QTableView>("MSFPagos").viewport();
    Celda(fila, columna);
    QTest::mouseDClick(donde, Qt::LeftButton, {}, Centro(fila, columna));
  }
  void Boton(const char* nombre) {
    QTest::mouseClick(&Vista<QAbstractButton>(nombre), Qt::LeftButton);
  }
  /// Answers the next message by its key.
  void Responder(Qt::Key tecla) {
    auto* espera = new QTimer(ventana);
    QObject::connect(espera, &QTimer::timeout, ventana, [espera, tecla] {
      QWidget* mensaje = QApplication::activeModalWidget();
      if (!mensaje) return;
      espera->deleteLater();
      espera->stop();
      QTest::keyClick(mensaje, tecla);
    });
    espera->start(10);
  }

  guion::CarpetaTemporal carpeta{false};
  guion::Opciones opciones;
  services::Plataforma plataforma = qt::CrearPlataforma();
  std::unique_ptr<shell::DatosComunes> sesion;
  std::unique_ptr<shell::Pantallas> pantallas;
  services::Ref<shell::ClassTesvara> clase;
  services::Ref<services::IDatosClase> contexto;
  QWidget* ventana = nullptr;
};

TEST_F(DiaEnPantalla, ConTeclasYRatonDejaLasMismasTablasQueElGuion) {
  Partida otra;
  ASSERT_EQ(otra.Jugar(jornada::kEmpresa + kDia).Salida, "");
  const std::string esperadas = otra.Jugar(jornada::kTablas).Salida;

  ASSERT_EQ(Partida(opciones).Jugar(jornada::kEmpresa).Estado, 0);
  Abrir();
  Celda(2, 5);
  DobleCelda(5, 4);
  auto& editor = Vista<QLineEdit>("TxtMsf");
  ASSERT_TRUE(editor.isVisible());
  QTest::keyClicks(&editor, "20,50");
  QTest::keyClick(&editor, Qt::Key_Return);
  QTest::keyClick(&editor, Qt::Key_Escape);
  Celda(3, 5);
  Celda(3, 5);
  Celda(9, 3);
  Responder(Qt::Key_N);
  Boton("BotonBorrar");
  Boton("BotonAceptar");
  Celda(5, 5);
  auto& hasta = Vista<QLineEdit>("TxtFPrevision");
  QTest::mouseClick(&hasta, Qt::LeftButton);
  hasta.selectAll();
  Responder(Qt::Key_S);
  QTest::keyClicks(&hasta, "30/04/2005");
  Boton("OptConcepto");
  Celda(1, 5);
  Boton("BotonAceptar");
  Cerrar();

  EXPECT_EQ(Partida(opciones).Jugar(jornada::kTablas).Salida, esperadas);
}

/// Ten thousand invoices of three receipts, all in the month.
const std::string kTreintaMil = R"(
datos INSERT INTO ProvConceptos VALUES('12','Papelería Núñez')
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 10000) INSERT INTO ProvFacturas SELECT '12','F'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 10000) INSERT INTO ProvVencimientos SELECT '12','F'||i,'2005','200503'||d,116,NULL,'','x','y' FROM n, (SELECT '05' AS d UNION ALL SELECT '15' UNION ALL SELECT '25')
)";

// The bounds are loose, so that a busy machine passes and a view that walks all rows doesn't; what
// was measured is printed.
TEST_F(DiaEnPantalla, TreintaMilFilasSeAbrenSeDesplazanYSePaganAlMomento) {
  ASSERT_EQ(Partida(opciones).Jugar(kTreintaMil).Estado, 0);
  QElapsedTimer reloj;
  reloj.start();
  Abrir();
  const qint64 abrir = reloj.elapsed();
  auto& lista = Vista<QTableView>("MSFPagos");
  EXPECT_EQ(lista.model()->rowCount(), 30000);

  reloj.restart();
  for (int fila = 0; fila < 30000; fila += 300) {
    lista.verticalScrollBar()->setValue(fila);
    lista.viewport()->repaint();
  }
  const double pagina = static_cast<double>(reloj.nsecsElapsed()) / 1e6 / 100;
  EXPECT_LT(pagina, 100);

  lista.verticalScrollBar()->setValue(0);
  reloj.restart();
  for (int fila = 1; fila <= 20; ++fila) {
    Celda(fila, 5);
    QCoreApplication::processEvents();
  }
  const double marca = static_cast<double>(reloj.nsecsElapsed()) / 1e6 / 20;
  EXPECT_LT(marca, 200);
  EXPECT_EQ(lista.model()->index(19, 4).data().toString(), "116,00");
  std::printf(
      "[ medido   ] de Cargar a pintado %lld ms, por página %.1f ms, por pago marcado %.1f ms\n",
      static_cast<long long>(abrir), pagina, marca);
  Responder(Qt::Key_N);
  Cerrar();
}

}  // namespace
