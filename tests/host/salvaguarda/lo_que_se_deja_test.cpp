#include <gmock/gmock.h>

#include <filesystem>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"

// What was accepted and is let go of without saving is kept aside.

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LoQueSeDeja : public testing::Test, protected pruebas::Oficina {
 protected:
  void Modificar() {
    Trabajar("UPDATE TempProvBasesIva SET Base = 5 WHERE NFactura = 'F000001' AND Tipo = '1'");
  }
};

TEST_F(LoQueSeDeja, SinCambiosNoSeGuardaNada) {
  Cargar();
  Cargar();
  Grabar();
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

TEST_F(LoQueSeDeja, LoQueNoSeVeEnNingunaCeldaTambien) {
  Cargar();
  Modificar();
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(AllOf(HasSubstr("Se han dejado sin grabar 1 base de IVA. "),
                                        HasSubstr("guardada aparte: aparte.sqlite"))));
  EXPECT_THAT(Apartadas, ElementsAre(9U)) << "antes de vaciarla";
}

TEST_F(LoQueSeDeja, LoGrabadoYVueltoACargarNo) {
  Cargar();
  Modificar();
  GrabarYCargar();
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

TEST_F(LoQueSeDeja, LoQueOtroCambioMientrasNo) {
  Cargar();
  Otro("UPDATE ProvVencimientos SET Pagado = 1");
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

/// The commit empties the working tables, and the load after it takes their place.
TEST_F(LoQueSeDeja, LoQueGrabarNoPudoEscribirSeApartaUnaVezYAntesDeVaciarlo) {
  Cargar();
  Modificar();
  Otro(
      "CREATE TRIGGER No BEFORE INSERT ON ProvBasesIva WHEN NEW.Base = 5 BEGIN SELECT RAISE(ABORT, "
      "'no'); END");
  GrabarYCargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("No se ha podido grabar todo")));
  EXPECT_THAT(Apartadas, ElementsAre(9U));
}

/// The other year's due dates come with the load, can't be written twice, and are stored all the
/// same.
TEST_F(LoQueSeDeja, LoQueGrabarNoEscribioYEstaGrabadoNo) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'F000000 ', "
      "'2004', '20040201', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'F000000', '2004', '20040310', 10)");
  Cargar();
  componente.Entorno().Omisiones.clear();
  GrabarYCargar();
  EXPECT_THAT(componente.Entorno().Omisiones, Not(IsEmpty()));
  EXPECT_THAT(Dejado, IsEmpty());
}

/// The list stays as it is, and whoever asked for another hears why.
TEST_F(LoQueSeDeja, SiNoSePuedeApartarNoSeDeja) {
  Cargar();
  Modificar();
  AlApartar = [] {
    throw services::ErrorEjecucion(services::error::FalloDeConexion, "No queda sitio");
  };
  EXPECT_THAT(apoyo::DescripcionDeError([this] { Cargar(); }),
              AllOf(HasSubstr("no se deja"), HasSubstr("No queda sitio")));
  EXPECT_TRUE(guardia->HayAlgoSinGrabar());
  AlApartar = [] {};
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("1 base de IVA")));
  EXPECT_FALSE(guardia->HayAlgoSinGrabar());
}

/// The commit empties the working tables in the same event, and passes over that it can't.
TEST_F(LoQueSeDeja, LoGrabadoAMediasTampocoSeDejaSiNoSePuedeApartar) {
  Cargar();
  Otro(
      "CREATE TRIGGER No BEFORE INSERT ON ProvBasesIva WHEN NEW.Tipo = '1' BEGIN SELECT "
      "RAISE(ABORT, 'no'); END");
  AlApartar = [] {
    throw services::ErrorEjecucion(services::error::FalloDeConexion, "No queda sitio");
  };
  EXPECT_THAT(apoyo::DescripcionDeError([this] { GrabarYCargar(); }), HasSubstr("No queda sitio"));
  EXPECT_TRUE(guardia->HayAlgoSinGrabar());
  EXPECT_THAT(Apartadas, IsEmpty());
  AlApartar = [] {};
  Cargar();
  EXPECT_THAT(Apartadas, ElementsAre(9U));
  EXPECT_FALSE(guardia->HayAlgoSinGrabar());
}

TEST_F(LoQueSeDeja, LoQueNoSePuedeMirarSeAparta) {
  Cargar();
  Modificar();
  Otro("ALTER TABLE ProvBasesIva RENAME COLUMN Exento TO Libre");
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("No se ha podido mirar")));
}

TEST_F(LoQueSeDeja, SoloOtrasMayusculasTambien) {
  Cargar();
  Trabajar("UPDATE TempProvFacturas SET Factura = 'f000001' WHERE Factura = 'F000001'");
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("1 factura")));
}

TEST_F(LoQueSeDeja, UnaBaseBorradaYUnaFacturaEnteraTambien) {
  Cargar();
  Trabajar("DELETE FROM TempProvBasesIva WHERE NFactura = 'F000001' AND Tipo = '1'");
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("sin grabar 1 base de IVA.")));
  for (const char* tabla :
       {"Facturas WHERE Factura", "BasesIva WHERE NFactura", "Vencimientos WHERE NFactura"}) {
    Trabajar("DELETE FROM TempProv" + std::string(tabla) + " = 'F000001'");
  }
  Dejado.clear();
  Cargar();
  EXPECT_THAT(Dejado,
              ElementsAre(HasSubstr("sin grabar 1 factura, 2 bases de IVA, 3 vencimientos.")));
}

TEST_F(LoQueSeDeja, SiFaltanLasTablasGuardadasNoSeCreanOtras) {
  Cargar();
  Modificar();
  const std::string fichero = Negocio().FicheroDatos();
  std::filesystem::rename(fichero, fichero + ".ido");
  (void)apoyo::NumeroDeError([this] { Cargar(); });
  EXPECT_FALSE(std::filesystem::exists(fichero));
  EXPECT_THAT(Dejado,
              ElementsAre(AllOf(HasSubstr("No se ha podido mirar"), HasSubstr("no existe"))));
}

TEST_F(LoQueSeDeja, TrasUnGrabarQueFallaSigueSinGrabar) {
  Cargar();
  Modificar();
  Otro("UPDATE ProvFacturas SET Total = 99.5");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("Se han dejado sin grabar")));
}

TEST_F(LoQueSeDeja, TrasUnNoLoQueOtroCambioNoEsDelUsuario) {
  Cargar();
  Trabajar("UPDATE TempProvBasesIva SET Base = Base");
  Otro("UPDATE ProvVencimientos SET Pagado = 1 WHERE NFactura <> 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

}  // namespace
