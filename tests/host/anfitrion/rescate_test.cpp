#include <fstream>

#include "host/anfitrion/custodia_de_prueba.h"

// What becomes of a working copy that a program left behind, and of one that was kept aside.

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using RescateEnVentana = pruebas::CustodiaTest;

TEST_F(RescateEnVentana, SinCopiaQueRescatarNoSeOfreceNada) {
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, IsEmpty());
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(RescateEnVentana, LaCopiaQueQuedoSeAbreComoEstaba) {
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
TEST_F(RescateEnVentana, LaQueYaSeVacioNoSeRetoma) {
  DejarUnaCopia();
  respuesta = 2;
  EXPECT_TRUE(custodia.OfrecerRescate());
  datos.DeTrabajo->Ejecutar("DELETE FROM TempProvFacturas");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(RescateEnVentana, LaQueNoSePuedeApartarNoSePierde) {
  DejarUnaCopia();
  custodia.Elegir = [this](const anfitrion::PreguntaConTexto& pregunta) {
    dicho.push_back(pregunta.Texto.toStdString());
    fs::remove_all(carpeta.Camino());
    return 0;
  };
  EXPECT_FALSE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho.back(), HasSubstr("no se abre para no perderla"));
}

TEST_F(RescateEnVentana, LaCopiaQueQuedoSeGuardaAparte) {
  DejarUnaCopia();
  EXPECT_TRUE(custodia.OfrecerRescate());
  ASSERT_THAT(dicho, SizeIs(2));
  EXPECT_THAT(dicho[1], HasSubstr("queda guardada en"));
  EXPECT_FALSE(custodia.PorRetomar());
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(RescateEnVentana, SeSigueSinLaCopiaQueQuedo) {
  DejarUnaCopia();
  respuesta = 1;
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_FALSE(custodia.PorRetomar());
  EXPECT_EQ(Apartados(), 0);
}

TEST_F(RescateEnVentana, LaCopiaDeOtraEmpresaSoloSePuedeApartar) {
  DejarUnaCopia();
  datos.DeTrabajo->Ejecutar("UPDATE SorvexCopia SET Almacenados = 'otra.sqlite'");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho[0], HasSubstr("es de otras tablas, otra.sqlite"));
  EXPECT_EQ(ofrecido, QStringList({"Aceptar"})) << "tras guardarla";
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(RescateEnVentana, LoQueNoSePuedeMirarSeApartaAntesDeCargar) {
  DejarUnaCopia();
  datos.Almacenados->Base().Ejecutar(
      "ALTER TABLE ProvVencimientos RENAME COLUMN Pagado TO Abonado");
  EXPECT_TRUE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, ElementsAre(AllOf(HasSubstr("No se ha podido mirar"),
                                       HasSubstr("queda guardada en"))));
  EXPECT_EQ(Apartados(), 1);
}

TEST_F(RescateEnVentana, LoQueNoSePuedeMirarNiApartarNoSeCarga) {
  DejarUnaCopia();
  datos.Almacenados->Base().Ejecutar(
      "ALTER TABLE ProvVencimientos RENAME COLUMN Pagado TO Abonado");
  fs::remove_all(carpeta.Camino());
  EXPECT_FALSE(custodia.OfrecerRescate());
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no se abre para no perderlo")));
}

class CopiaAparte : public pruebas::CustodiaTest {
 protected:
  CopiaAparte() {
    DejarUnaCopia();
    EXPECT_TRUE(custodia.OfrecerRescate());
    for (const auto& entrada : fs::directory_iterator(carpeta.Camino())) {
      const std::string nombre = entrada.path().filename();
      if (nombre.starts_with("trabajo-")) aparte = entrada.path();
    }
    datos.DeTrabajo->Ejecutar("DELETE FROM TempProvFacturas");
    dicho.clear();
  }
  void AbrirAparte() {
    custodia.AbrirAparte(aparte, [this] { return cierra; });
  }

  std::string aparte;
  bool cierra = true;
};

TEST_F(CopiaAparte, SeAbreComoEstaba) {
  AbrirAparte();
  EXPECT_THAT(dicho,
              ElementsAre(AllOf(HasSubstr("La copia de trabajo de ANA"), HasSubstr("SIN-GRABAR"),
                                HasSubstr("abrirla como estaba y pulsar Grabar. ¿Abrirla?"))));
  EXPECT_EQ(EnTrabajo(), 1);
  ASSERT_TRUE(custodia.PorRetomar());
  EXPECT_EQ(custodia.PorRetomar()->Desde, todo.Desde);
}

TEST_F(CopiaAparte, SiNoSeQuiereOLaPantallaNoSeCierraTodoQuedaComoEstaba) {
  respuesta = 1;
  AbrirAparte();
  respuesta = 0;
  cierra = false;
  AbrirAparte();
  EXPECT_EQ(EnTrabajo(), 0);
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(CopiaAparte, LoQueYaEstaGrabadoNoSeAbre) {
  sqlite::AbrirConexion(aparte)->Ejecutar("DELETE FROM TempProvFacturas");
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no hay nada que no esté así")));
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(CopiaAparte, LaDeOtrasTablasYLaQueNoEsUnaCopiaSeDicen) {
  sqlite::AbrirConexion(aparte)->Ejecutar("UPDATE SorvexCopia SET Almacenados = 'otra.sqlite'");
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("es de otras tablas, otra.sqlite")));
  std::ofstream(aparte) << "una carta";
  AbrirAparte();
  EXPECT_THAT(dicho.back(), HasSubstr("No se ha podido abrir la copia"));
  EXPECT_FALSE(custodia.PorRetomar());
}

TEST_F(CopiaAparte, LaQueQuedoSinOfrecerSeGuardaAparteTambien) {
  datos.DeTrabajo->Ejecutar(
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('2', 'OTRA', '2005')");
  AbrirAparte();
  ASSERT_THAT(dicho, SizeIs(2));
  EXPECT_THAT(dicho[1], HasSubstr("La copia de trabajo que había queda guardada en"));
  EXPECT_EQ(Apartados(), 2) << "aunque sea en el mismo segundo";
  EXPECT_TRUE(custodia.PorRetomar());
}

TEST_F(CopiaAparte, ElFicheroDeLaEmpresaNoLoEs) {
  aparte = datos.Almacenados->Nombre();
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no tiene ninguna copia de trabajo")));
}

TEST_F(CopiaAparte, ElFicheroQueNoLoEsQuedaComoEstaba) {
  std::ofstream(aparte, std::ios::trunc).close();
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no tiene ninguna copia de trabajo")));
  EXPECT_EQ(fs::file_size(aparte), 0U);
}

TEST_F(CopiaAparte, LaQueEstaAbiertaSeDice) {
  aparte = datos.NombreDeTrabajo;
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("la copia de trabajo que está abierta")));
}

/// The last ten stay, and this would be the eleventh.
TEST_F(CopiaAparte, LaQueSeAbreNoSeQuitaPorLasQueSeDejanAlCerrar) {
  aparte = anfitrion::ApartarDejada(datos, "");
  fs::remove(aparte);
  aparte.insert(aparte.find("-dejada") + 7, "-0000");
  datos.DeTrabajo->Ejecutar(
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('1', 'SIN-GRABAR', '2005')");
  datos.DeTrabajo->CopiarEn(aparte);
  custodia.AbrirAparte(aparte, [this] {
    for (int i = 0; i < 11; ++i) custodia.Guardia().AlVaciar();
    return true;
  });
  EXPECT_TRUE(fs::exists(aparte));
  EXPECT_TRUE(custodia.PorRetomar());
}

TEST_F(CopiaAparte, LaDeColumnasEnOtroOrdenSeTraePorSusNombres) {
  sqlite::AbrirConexion(aparte)->Ejecutar(
      "INSERT INTO TempProvBasesIva (NConcepto, NFactura, Año, Tipo, Base, Importe) VALUES ('1', "
      "'SIN-GRABAR', '2005', '1', 100, 16); CREATE TABLE Otra AS SELECT Importe, Base, NConcepto, "
      "NFactura, Año, Tipo, Exento FROM TempProvBasesIva; DROP TABLE TempProvBasesIva; ALTER TABLE "
      "Otra RENAME TO TempProvBasesIva");
  AbrirAparte();
  const auto traida = datos.DeTrabajo->Consultar("SELECT Base, Importe FROM TempProvBasesIva");
  ASSERT_EQ(traida.Filas.Cuantas(), 1U);
  EXPECT_EQ(traida.Filas.En(0, 0).Numero(), 100);
  EXPECT_EQ(traida.Filas.En(0, 1).Numero(), 16);
}

TEST_F(CopiaAparte, LaDeUnRangoQueNoSeEntiendeNoSeAbre) {
  sqlite::AbrirConexion(aparte)->Ejecutar("UPDATE SorvexCopia SET Hasta = 'x'");
  AbrirAparte();
  EXPECT_THAT(dicho, ElementsAre(HasSubstr("no se puede abrir")));
  EXPECT_FALSE(custodia.PorRetomar());
}

/// Half a copy would be saved as a whole one.
TEST_F(CopiaAparte, LaQueNoSePuedeTraerEnteraDejaLoQueHabia) {
  datos.DeTrabajo->Ejecutar(
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('2', 'OTRA', '2005')");
  sqlite::AbrirConexion(aparte)->Ejecutar("ALTER TABLE TempCajaPagos ADD COLUMN Nueva TEXT");
  AbrirAparte();
  EXPECT_THAT(dicho.back(), HasSubstr("No se ha podido abrir la copia"));
  EXPECT_EQ(EnTrabajo(), 1);
  EXPECT_FALSE(custodia.PorRetomar());
}

}  // namespace
