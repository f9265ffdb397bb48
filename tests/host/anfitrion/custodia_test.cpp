#include "anfitrion/custodia.h"

#include <QDialog>
#include <QFile>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "apoyo/errores.h"
#include "host/anfitrion/custodia_de_prueba.h"
#include "platform/cerrojos.h"
#include "valores/error.h"

// What the suite asks and tells of the user's data, in its window.

namespace {

namespace fs = std::filesystem;
using pruebas::CustodiaTest;
using salvaguarda::Comienzo;
using services::Omision;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

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
  const std::string dia = datos.Almacenados->Base().Consultar(primera).Filas.En(0, 0).Texto();
  services::Ref<services::Conexion> conexion;
  {
    QWidget ventana;
    anfitrion::Custodia custodia(ventana, datos, opciones);
    conexion = custodia.Almacenados();
    custodia.Guardia().AlComenzar({Comienzo::Tarea::Carga, {dia, dia}});
  }
  datos.Almacenados->Base().Ejecutar("UPDATE ProvVencimientos SET Importe = 1 WHERE FechaVto = '" +
                                     dia + "'");
  datos.Almacenados->Base().TerminarUnidad();
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
  datos.Almacenados->Base().Ejecutar("DELETE FROM ProvConceptos WHERE NConcepto = '105'");
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

TEST_F(CustodiaTest, DeLasQueSeDejanQuedanLasDiezUltimas) {
  fs::path ultima;
  for (int i = 0; i < 12; ++i) {
    ultima = anfitrion::ApartarDejada(datos, "");
    EXPECT_TRUE(fs::exists(ultima));
    static_cast<void>(sqlite::AbrirConexion(ultima.string(), {.SoloLectura = true}));
  }
  EXPECT_TRUE(fs::exists(anfitrion::ApartarDeTrabajo(datos)));
  int dejadas = 0;
  for (const auto& entrada : fs::directory_iterator(carpeta.Camino())) {
    if (entrada.path().filename().string().starts_with("trabajo-dejada-")) ++dejadas;
  }
  EXPECT_EQ(dejadas, 10);
  EXPECT_EQ(Apartados(), 11) << "las otras se quedan";
}

TEST_F(CustodiaTest, DondeNoSeLlegaNoSeApartaYSeDicePorQue) {
  anfitrion::Datos otros = datos;
  otros.NombreDeTrabajo = carpeta.Fichero("carta") + "/trabajo.sqlite";
  std::ofstream(carpeta.Fichero("carta")) << "no es una carpeta";
  EXPECT_THAT(apoyo::DescripcionDeError([&] { return anfitrion::ApartarDeTrabajo(otros); }),
              AllOf(HasSubstr("No se puede"), HasSubstr(carpeta.Fichero("carta"))));
}

TEST_F(CustodiaTest, LoQueElMotorTieneJuntoALaCopiaAbiertaNoSeAbre) {
  custodia.AbrirAparte(datos.NombreDeTrabajo + "-shm", [] { return true; });
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no tiene ninguna copia de trabajo")));
  dicho.clear();
  datos.Almacenados->Base().Ejecutar("SELECT count(*) FROM ProvFacturas");
  const auto cerrojos = pruebas::CerrojosDeBase(datos.Almacenados->Nombre());
  custodia.AbrirAparte(datos.Almacenados->Nombre() + "-shm", [] { return true; });
  EXPECT_EQ(pruebas::CerrojosDeBase(datos.Almacenados->Nombre()), cerrojos);
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no tiene ninguna copia de trabajo")));
}

TEST_F(CustodiaTest, UnaVezAlDiaSeCopiaElFicheroEntero) {
  custodia.CopiarElDia();
  custodia.CopiarElDia();
  int enteras = 0;
  for (const auto& entrada : fs::directory_iterator(carpeta.Fichero("copias/empresa.sqlite"))) {
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

}  // namespace
