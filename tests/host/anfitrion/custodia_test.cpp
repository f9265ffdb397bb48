#include "anfitrion/custodia.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <filesystem>

#include "anfitrion/dialogo_copias.h"
#include "anfitrion/fechas.h"
#include "mensajes/teclas_de_mensaje.h"
#include "platform/carpeta_temporal.h"

// What the suite asks and tells of the user's data, in its window.

namespace {

namespace fs = std::filesystem;
using anfitrion::PreguntaConTexto;
using salvaguarda::Comienzo;
using services::Omision;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class CustodiaTest : public testing::Test {
 protected:
  CustodiaTest() {
    custodia.Elegir = [this](const PreguntaConTexto& pregunta) {
      dicho.push_back(pregunta.Texto.toStdString());
      ofrecido = pregunta.Respuestas;
      return respuesta;
    };
    const auto rango =
        datos.Almacenados->Consultar("SELECT min(FechaVto), max(FechaVto) FROM ProvVencimientos");
    todo = {rango.Filas.En(0, 0).Texto(), rango.Filas.En(0, 1).Texto()};
  }
  static anfitrion::Opciones En(const std::string& carpeta) {
    anfitrion::Opciones opciones;
    opciones.Carpeta = QString::fromStdString(carpeta);
    return opciones;
  }
  void Comenzar(Comienzo::Tarea tarea) { custodia.Guardia().AlComenzar({tarea, todo}); }
  /// A working copy with one row that isn't stored.
  void DejarUnaCopia() {
    Comenzar(Comienzo::Tarea::Carga);
    datos.DeTrabajo->Ejecutar(
        "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('1', 'SIN-GRABAR', "
        "'2005')");
  }
  [[nodiscard]] int Apartados() const {
    int cuantos = 0;
    for (const auto& entrada : fs::directory_iterator(carpeta.Camino())) {
      if (entrada.path().filename().string().starts_with("trabajo-")) ++cuantos;
    }
    return cuantos;
  }
  int EnTrabajo() {
    return static_cast<int>(datos.DeTrabajo->Consultar("SELECT count(*) FROM TempProvFacturas")
                                .Filas.En(0, 0)
                                .Numero());
  }

  pruebas::CarpetaTemporal carpeta;
  anfitrion::Opciones opciones = En(carpeta.Camino());
  anfitrion::Datos datos = anfitrion::AbrirDatos(opciones);
  QWidget ventana;
  anfitrion::Custodia custodia{ventana, datos, opciones};
  salvaguarda::Rango todo;
  std::vector<std::string> dicho;
  QStringList ofrecido;
  int respuesta = 0;
};

TEST_F(CustodiaTest, LoPasadoPorAltoSeDiceCuandoElSucesoHaTerminado) {
  custodia.Guardia().PasadoPorAlto(
      {Omision::Tarea::Carga, Omision::Falta::Tabla, "TempCajaPagos", {}, {1, "no se lee"}});
  custodia.Guardia().PasadoPorAlto(
      {Omision::Tarea::Carga, Omision::Falta::Tabla, "TempProvBasesIva", {}, {1, "no se lee"}});
  EXPECT_THAT(dicho, IsEmpty()) << "todavía no";
  QCoreApplication::processEvents();
  EXPECT_THAT(dicho, ElementsAre(AllOf(HasSubstr("CajaPagos"), HasSubstr("ProvBasesIva"))))
      << "en una sola ventana";
  QCoreApplication::processEvents();
  EXPECT_THAT(dicho, SizeIs(1));
}

/// A message of the component is part of the event.
TEST_F(CustodiaTest, MientrasOtraVentanaEsperaNoSeDiceNada) {
  QDialog mensaje(&ventana);
  QTimer::singleShot(200, &mensaje, [&] {
    EXPECT_THAT(dicho, IsEmpty());
    mensaje.accept();
  });
  custodia.Guardia().PasadoPorAlto(
      {Omision::Tarea::Carga, Omision::Falta::Tabla, "TempCajaPagos", {}, {1, "no se lee"}});
  mensaje.exec();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dicho.empty(); }));
}

/// The component may keep its connection to the end.
TEST(CustodiaSinVentana, UnNoContestaPorQuienYaNoEsta) {
  const pruebas::CarpetaTemporal carpeta;
  anfitrion::Opciones opciones;
  opciones.Carpeta = QString::fromStdString(carpeta.Camino());
  const anfitrion::Datos datos = anfitrion::AbrirDatos(opciones);
  const std::string primera = "SELECT min(FechaVto) FROM ProvVencimientos";
  const std::string dia = datos.Almacenados->Consultar(primera).Filas.En(0, 0).Texto();
  services::Ref<services::Conexion> conexion;
  {
    QWidget ventana;
    anfitrion::Custodia custodia(ventana, datos, opciones);
    conexion = custodia.Almacenados();
    custodia.Guardia().AlComenzar({Comienzo::Tarea::Carga, {dia, dia}});
  }
  datos.Almacenados->Ejecutar("UPDATE ProvVencimientos SET Importe = 1 WHERE FechaVto = '" + dia +
                              "'");
  datos.Almacenados->TerminarUnidad();
  EXPECT_THROW(
      static_cast<void>(conexion->Abrir(
          "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
          "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
          "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '" +
              dia + "' And ProvVencimientos.FechaVto <= '" + dia + "' Order By ProvFacturas.Fecha",
          services::ModoApertura::Lectura)),
      services::ErrorEjecucion);
}

TEST_F(CustodiaTest, LasFilasQueGrabarBorrariaDejanCerrarSinGrabar) {
  int cerrada = 0;
  custodia.CerrarSinGrabar = [&] { ++cerrada; };
  datos.Almacenados->Ejecutar("DELETE FROM ProvConceptos WHERE NConcepto = '105'");
  Comenzar(Comienzo::Tarea::Carga);
  QCoreApplication::processEvents();
  EXPECT_EQ(ofrecido, QStringList({"Seguir", "Cerrar sin grabar"}));
  EXPECT_EQ(cerrada, 0);
  custodia.Guardia().PasadoPorAlto({Omision::Tarea::Carga,
                                    Omision::Falta::Fila,
                                    "TempProvFacturas",
                                    {{"NConcepto", "1"}, {"Factura", "X"}, {"Año", "2005"}},
                                    {1, "no cabe"}});
  respuesta = 1;
  QCoreApplication::processEvents();
  EXPECT_EQ(cerrada, 1);
}

TEST_F(CustodiaTest, SinCopiaQueRescatarNoSeOfreceNada) {
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, IsEmpty());
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(CustodiaTest, LaCopiaQueQuedoSeAbreComoEstaba) {
  DejarUnaCopia();
  respuesta = 2;
  EXPECT_TRUE(custodia.OfrecerRescate());
  ASSERT_THAT(dicho, SizeIs(1));
  EXPECT_THAT(dicho[0],
              AllOf(HasSubstr("La copia de trabajo de ANA"), HasSubstr("SIN-GRABAR"),
                    HasSubstr("Los pagos que solo estaban escritos en la lista no están")));
  EXPECT_EQ(ofrecido, QStringList({"Guardarla aparte", "Seguir sin ella", "Abrirla como estaba"}));
  ASSERT_TRUE(custodia.PorRetomar());
  EXPECT_EQ(custodia.PorRetomar()->Desde, todo.Desde);
  EXPECT_EQ(EnTrabajo(), 1);
  EXPECT_EQ(Apartados(), 1) << "por si se cierra sin grabar";
  custodia.Abierta();
  EXPECT_FALSE(custodia.PorRetomar());
}

/// A list without rows would empty the month at the next "Grabar".
TEST_F(CustodiaTest, LaQueYaSeVacioNoSeRetoma) {
  DejarUnaCopia();
  respuesta = 2;
  EXPECT_TRUE(custodia.OfrecerRescate());
  datos.DeTrabajo->Ejecutar("DELETE FROM TempProvFacturas");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(CustodiaTest, LaCopiaQueQuedoSeGuardaAparte) {
  DejarUnaCopia();
  EXPECT_TRUE(custodia.OfrecerRescate());
  ASSERT_THAT(dicho, SizeIs(2));
  EXPECT_THAT(dicho[1], HasSubstr("queda guardada en"));
  EXPECT_FALSE(custodia.PorRetomar());
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(CustodiaTest, SeSigueSinLaCopiaQueQuedo) {
  DejarUnaCopia();
  respuesta = 1;
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_FALSE(custodia.PorRetomar());
  EXPECT_EQ(Apartados(), 0);
}

TEST_F(CustodiaTest, LaCopiaDeOtraEmpresaSoloSePuedeApartar) {
  DejarUnaCopia();
  datos.DeTrabajo->Ejecutar("UPDATE SorvexCopia SET Almacenados = 'otra.sqlite'");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho[0], HasSubstr("es de otras tablas, otra.sqlite"));
  EXPECT_EQ(ofrecido, QStringList({"Aceptar"})) << "tras guardarla";
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(CustodiaTest, LoQueNoSePuedeMirarSeApartaAntesDeCargar) {
  DejarUnaCopia();
  datos.Almacenados->Ejecutar("ALTER TABLE ProvVencimientos RENAME COLUMN Pagado TO Abonado");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, ElementsAre(AllOf(HasSubstr("No se ha podido mirar"),
                                       HasSubstr("queda guardada en"))));
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(CustodiaTest, LoQueNoSePuedeMirarNiApartarNoSeCarga) {
  DejarUnaCopia();
  datos.Almacenados->Ejecutar("ALTER TABLE ProvVencimientos RENAME COLUMN Pagado TO Abonado");
  fs::remove_all(carpeta.Camino());
  EXPECT_FALSE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no se abre para no perderlo")));
}

TEST_F(CustodiaTest, UnaVezAlDiaSeCopiaElFicheroEntero) {
  custodia.CopiarElDia();
  custodia.CopiarElDia();
  int enteras = 0;
  for (const auto& entrada : fs::directory_iterator(carpeta.Fichero("copias/empresa"))) {
    if (entrada.path().filename().string().starts_with("empresa-")) ++enteras;
  }
  EXPECT_EQ(enteras, 1);
  EXPECT_THAT(dicho, IsEmpty());
}

TEST_F(CustodiaTest, LaCopiaDelDiaQueNoSePuedeHacerSeDice) {
  QFile fichero(QString::fromStdString(carpeta.Fichero("copias")));
  ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
  custodia.CopiarElDia();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("No se ha podido guardar la copia de hoy")));
}

/// The window of the copies, with one of them made before all due dates were paid.
class VentanaDeCopias : public CustodiaTest {
 protected:
  VentanaDeCopias() {
    Comenzar(Comienzo::Tarea::Carga);
    Comenzar(Comienzo::Tarea::Grabacion);
    datos.Almacenados->AbandonarUnidad();
    datos.Almacenados->Ejecutar("UPDATE ProvVencimientos SET Pagado = Importe + 1");
  }
};

TEST_F(VentanaDeCopias, DiceQueHariaCadaUna) {
  anfitrion::DialogoCopias dialogo(ventana, custodia.Guardia());
  const auto* tabla = dialogo.findChild<QTableWidget*>();
  ASSERT_EQ(tabla->rowCount(), 1);
  EXPECT_EQ(tabla->item(0, 1)->text(), "ANA");
  EXPECT_EQ(tabla->item(0, 2)->text(), anfitrion::FechaMostrada(todo.Desde));
  EXPECT_EQ(tabla->item(0, 6)->text(), tabla->item(0, 5)->text()) << "todos sus vencimientos";
  EXPECT_THAT(dialogo.findChild<QPlainTextEdit*>()->toPlainText().toStdString(),
              HasSubstr("Vuelven a ser como eran"));
}

TEST_F(VentanaDeCopias, LaElegidaSeRepone) {
  int cierres = 0;
  QTimer::singleShot(0, &ventana, [] {
    auto* dialogo = QApplication::activeModalWidget();
    QTimer::singleShot(0, dialogo, [] {
      for (auto* boton : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
        if (boton->text() == "Sí") boton->click();
      }
    });
    for (auto* boton : dialogo->findChildren<QPushButton*>()) {
      if (boton->text() == "&Recuperar") boton->click();
    }
  });
  custodia.Recuperar([&] { return ++cierres > 0; });
  EXPECT_EQ(cierres, 1);
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("La copia está recuperada")));
  EXPECT_EQ(datos.Almacenados
                ->Consultar("SELECT count(*) FROM ProvVencimientos WHERE Pagado = "
                            "Importe + 1")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

TEST_F(VentanaDeCopias, SinCerrarLoAbiertoNoSeReponeNada) {
  QTimer::singleShot(0, &ventana,
                     [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
  custodia.Recuperar([] { return false; });
  EXPECT_GT(datos.Almacenados
                ->Consultar("SELECT count(*) FROM ProvVencimientos WHERE Pagado = "
                            "Importe + 1")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

TEST_F(CustodiaTest, SinNingunaCopiaLaVentanaLoDice) {
  anfitrion::DialogoCopias dialogo(ventana, custodia.Guardia());
  EXPECT_EQ(dialogo.findChild<QTableWidget*>()->rowCount(), 0);
  for (const auto* boton : dialogo.findChildren<QPushButton*>()) {
    if (boton->text() != "&Recuperar") continue;
    EXPECT_FALSE(boton->isEnabled());
  }
}

TEST(PreguntaDeTexto, EscapeEsDejarlaEnterLaDeSiempreYLaPrimeraLetraLaSuya) {
  QWidget ventana;
  const PreguntaConTexto pregunta{"Algo", {"Sí", "Abrir", "No"}, 0, 2};
  const auto con = [&](Qt::Key tecla) {
    QTimer::singleShot(mensajes::kAntesDeLeer + std::chrono::milliseconds(50), &ventana,
                       [tecla] { QTest::keyClick(QApplication::activeModalWidget(), tecla); });
    return anfitrion::Preguntar(ventana, pregunta);
  };
  EXPECT_EQ(con(Qt::Key_Escape), 2);
  EXPECT_EQ(con(Qt::Key_Return), 0);
  EXPECT_EQ(con(Qt::Key_A), 1);
}

}  // namespace
