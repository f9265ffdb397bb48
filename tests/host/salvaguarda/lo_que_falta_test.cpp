#include <gmock/gmock.h>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"
#include "valores/error.h"

// What the suite tells of rows and tables that a load or a "Grabar" passed over.

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

class LoQueFalta : public testing::Test, protected pruebas::Oficina {};

TEST_F(LoQueFalta, LoMismoNoSeCuentaDosVeces) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 1 WHERE Factura = 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Otro("UPDATE ProvFacturas SET Total = 2 WHERE Factura = 'F000001'");
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], HasSubstr("(1 factura)"));
}

TEST_F(LoQueFalta, LoQueNoSePuedeMirarSeDaPorPerdido) {
  Cargar();
  Otro("ALTER TABLE ProvPrevisionPagos RENAME TO Quitada");
  guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                          services::Omision::Falta::Fila,
                          "ProvPrevisionPagos",
                          {{"NConcepto", "7"}},
                          {1, "no se escribe"}});
  EXPECT_THAT(Contado(), HasSubstr("previsión de Proveedor número 6 (7): no se escribe"));
}

/// Another program writes moments without their time.
TEST_F(LoQueFalta, UnApunteGuardadoSinSuHoraSeHalla) {
  Otro(
      "INSERT INTO CajaPagos (idSucursal, FechaHora, Tipo, Importe, Factura, Año) VALUES ('01', "
      "'2005-02-20', 400, 10, 'L1', '2005')");
  const auto pasarPorAlto = [this](const char* factura) {
    guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                            services::Omision::Falta::Fila,
                            "CajaPagos",
                            {{"idSucursal", "01"},
                             {"FechaHora", services::LeerFecha("20/02/2005").value()},
                             {"Tipo", 400},
                             {"Factura", factura},
                             {"Año", "2005"}},
                            {1, "no se escribe"}});
  };
  pasarPorAlto("L1");
  EXPECT_EQ(Contado(), "");
  pasarPorAlto("L2");
  EXPECT_THAT(Contado(), HasSubstr("No se ha podido poner su factura a estos apuntes"));
}

TEST_F(LoQueFalta, UnaFacturaSinSusApuntesSeDiceSinAmenazas) {
  Otro(
      "UPDATE ProvFacturas SET Factura = 'O''1' WHERE Factura = 'F000001'; UPDATE "
      "ProvVencimientos SET NFactura = 'O''1' WHERE NFactura = 'F000001'; UPDATE ProvBasesIva SET "
      "NFactura = 'O''1' WHERE NFactura = 'F000001'");
  Cargar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("No se han podido buscar los apuntes de caja"),
                               HasSubstr("factura O'1 de 2005"), Not(HasSubstr("borraría"))));
}

TEST_F(LoQueFalta, LoQueLaCargaDejaFueraSeCuentaUnaVezYSePreguntaAntesDeBorrarlo) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  EXPECT_GT(Avisos, 0);
  const std::string contado = Contado();
  EXPECT_THAT(contado, AllOf(HasSubstr("(1 factura, 3 vencimientos)"),
                             HasSubstr("factura F000001 de 2005 del concepto 2 (vencimiento "
                                       "02/03/2005; vencimiento 12/03/2005; vencimiento "
                                       "22/03/2005): su concepto no existe")));
  Cargar();
  EXPECT_EQ(Contado(), "") << "lo mismo no se repite a cada carga";
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], HasSubstr("que no se cargaron, y que se borrarían"));
  EXPECT_THAT(Consulta("SELECT 1 FROM ProvFacturas WHERE Factura = 'F000001'"), testing::IsEmpty());
}

TEST_F(LoQueFalta, LosBlancosDeUnLadoDejanFueraYSeCuentan) {
  Otro(
      "UPDATE ProvVencimientos SET NFactura = NFactura || ' ' WHERE NFactura = 'F000001' AND "
      "FechaVto = '20050302'");
  Cargar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("(1 vencimiento)"),
                               HasSubstr("sus blancos no son los de su factura")));
}

TEST_F(LoQueFalta, UnaFilaQueLaCopiaNoAdmiteSePreguntaTambien) {
  Trabajar(
      "CREATE TRIGGER SinUna BEFORE INSERT ON TempProvVencimientos WHEN NEW.FechaVto = "
      "'20050302' BEGIN SELECT RAISE(ABORT, 'no'); END");
  Cargar();
  EXPECT_THAT(Contado(), HasSubstr("vencimiento 02/03/2005 de la factura F000001"));
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
}

TEST_F(LoQueFalta, UnaTablaSinCargarSeDiceEnseguida) {
  Otro("ALTER TABLE ProvBasesIva RENAME TO Quitada");
  Cargar();
  EXPECT_THAT(Contado(), HasSubstr("No se ha podido cargar nada de bases de IVA (ProvBasesIva)"));
}

TEST_F(LoQueFalta, UnaTablaSinCargarSeDiceAunqueNoSePuedaAnotar) {
  Cargar();
  Trabajar(
      "CREATE TRIGGER No BEFORE UPDATE ON SorvexCopia BEGIN SELECT RAISE(ABORT, 'lleno'); END");
  guardia->PasadoPorAlto({services::Omision::Tarea::Carga,
                          services::Omision::Falta::Tabla,
                          "TempProvBasesIva",
                          {},
                          {1, "no se abre"}});
  EXPECT_THAT(Contado(),
              HasSubstr("No se ha podido cargar nada de bases de IVA (ProvBasesIva): no se abre"));
}

/// Those of the list, of which the user has taken one away and entered another.
TEST_F(LoQueFalta, UnaTablaSinGrabarSeDiceConLasFilasQueSeVanConElla) {
  Cargar();
  Trabajar(
      "DELETE FROM TempProvBasesIva WHERE NFactura = 'F000002'; INSERT INTO TempProvBasesIva "
      "(NConcepto, NFactura, Año, Tipo, Base) VALUES ('1', 'NUEVA', '2005', '3', 7)");
  Otro("DELETE FROM ProvBasesIva WHERE NFactura IN ('F000001', 'F000002')");
  guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                          services::Omision::Falta::Tabla,
                          "ProvBasesIva",
                          {},
                          {1, "no se abre"}});
  Trabajar("DELETE FROM TempProvBasesIva");
  const std::string contado = Contado();
  EXPECT_THAT(contado,
              AllOf(HasSubstr("No se ha podido grabar nada de bases de IVA (ProvBasesIva): "
                              "no se abre. No están entre lo grabado"),
                    HasSubstr("base de IVA del 16% de la factura F000001 de 2005"),
                    HasSubstr("base de IVA del 4% de la factura NUEVA de 2005")));
  EXPECT_THAT(contado, Not(HasSubstr("F000000"))) << "sigue grabada";
  EXPECT_THAT(contado, Not(HasSubstr("F000002"))) << "la quitó el usuario";
}

TEST_F(LoQueFalta, UnaFilaQueNoSeGrabaSeCuentaYUnaQueEstaIgualNo) {
  // The other year's receipts come with the load, and can't be written twice.
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'F000000', "
      "'2004', '20040201', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'F000000', '2004', '20040310', 10)");
  Cargar();
  Grabar();
  EXPECT_EQ(Contado(), "");
  Cargar();
  Otro(
      "CREATE TRIGGER SinUna BEFORE INSERT ON ProvFacturas WHEN NEW.Factura = 'F000002' BEGIN "
      "SELECT RAISE(ABORT, 'no cabe'); END");
  Grabar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("No se han podido grabar estas filas"),
                               HasSubstr("factura F000002 de 2005 de Proveedor número 2 (3)"),
                               HasSubstr("no cabe")));
}

TEST_F(LoQueFalta, UnaPrevisionQueNoSeDejaBorrarSeCuenta) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('1', "
      "'20050301', 1, 2, 50); CREATE TRIGGER No BEFORE DELETE ON ProvPrevisionPagos BEGIN SELECT "
      "RAISE(ABORT, 'no se toca'); END");
  Cargar();
  Trabajar("DELETE FROM TempProvPrevisionPagos");
  Grabar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("No se ha podido borrar nada de previsiones"),
                               HasSubstr("no se toca"), HasSubstr("sigue grabado")));
}

}  // namespace
