#include <gmock/gmock.h>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"

// A question is for what would be lost, and for nothing else: one that is asked in vain teaches to
// answer yes.

namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class LoDeOtros : public testing::Test, protected pruebas::Oficina {};

TEST_F(LoDeOtros, LoQueCualquierGrabarHaceDeUnaFilaNoEsUnCambio) {
  Otro("UPDATE ProvFacturas SET BIRPF = NULL, TipoIRPF = 1, IRPF = NULL");
  Cargar();
  Otro(
      "UPDATE ProvFacturas SET BIRPF = 0, TipoIRPF = 0, IRPF = 0, ModificadoPor = 'EVA';"
      "UPDATE CajaPagos SET Factura = '', Año = '', ModificadoPor = 'EVA' WHERE Factura IS NULL");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(LoDeOtros, LoQueLosDosHanBorradoNoSePregunta) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050101', 1, 2, 50)");
  Cargar();
  Trabajar(
      "DELETE FROM TempProvFacturas WHERE Factura = 'F000001'; DELETE FROM TempProvBasesIva WHERE "
      "NFactura = 'F000001'; DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001';"
      "DELETE FROM TempProvPrevisionPagos");
  Otro(
      "DELETE FROM ProvFacturas WHERE Factura = 'F000001'; DELETE FROM ProvBasesIva WHERE NFactura "
      "= 'F000001'; DELETE FROM ProvVencimientos WHERE NFactura = 'F000001'; DELETE FROM "
      "ProvPrevisionPagos");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(LoDeOtros, LoQueBorroUnoYElOtroTieneSePregunta) {
  Cargar();
  Otro("DELETE FROM ProvVencimientos WHERE NFactura = 'F000001'");
  Grabar();
  EXPECT_THAT(Preguntas, SizeIs(1));
}

TEST_F(LoDeOtros, DeLoQueOtroCambioDiceQueSeriaSegunLoQueHayEnLaLista) {
  Cargar();
  Trabajar(
      "DELETE FROM TempProvFacturas WHERE Factura = 'F000001'; DELETE FROM TempProvBasesIva WHERE "
      "NFactura = 'F000001'; DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001';"
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'NUEVA', "
      "'2005', '20050301', 77); INSERT INTO TempProvVencimientos (NConcepto, NFactura, Año, "
      "FechaVto, Importe) VALUES ('1', 'NUEVA', '2005', '20050325', 77)");
  Otro(
      "UPDATE ProvFacturas SET Total = 99.5, ModificadoPor = 'EVA' WHERE Factura = 'F000001';"
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total, ModificadoPor) VALUES "
      "('1', 'NUEVA', '2005', '20050301', 10, 'EVA'); INSERT INTO ProvVencimientos (NConcepto, "
      "NFactura, Año, FechaVto, Importe) VALUES ('1', 'NUEVA', '2005', '20050310', 10)");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(
      Preguntas[0],
      AllOf(HasSubstr("F000001 de 2005 de Proveedor número 1 (2), por 99,50, antes 322,45: la ha "
                      "cambiado EVA, y "
                      "se borraría"),
            HasSubstr("NUEVA de 2005 de Proveedor número 0 (1), por 10,00: la ha añadido EVA, y la "
                      "de la lista ocuparía su lugar")));
}

TEST_F(LoDeOtros, LoQueNoSeCargoYYaNoEstaNoSePregunta) {
  // Its bases are none: a load brings those of any concept, and a commit would write them again.
  Otro(
      "DELETE FROM ProvConceptos WHERE NConcepto = '2'; DELETE FROM ProvBasesIva WHERE NConcepto = "
      "'2'");
  Cargar();
  Otro(
      "DELETE FROM ProvFacturas WHERE NConcepto = '2'; DELETE FROM ProvVencimientos WHERE "
      "NConcepto = '2'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(LoDeOtros, UnNumeroEsElMismoEnMinusculas) {
  Cargar();
  Otro(
      "UPDATE ProvFacturas SET Factura = 'f000001', ModificadoPor = 'EVA' WHERE Factura = "
      "'F000001'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], Not(HasSubstr("ya está grabada con vencimientos de otras fechas")));
}

TEST_F(LoDeOtros, LosVencimientosEnMinusculasSonDeSuFactura) {
  Otro(
      "UPDATE ProvVencimientos SET NFactura = lower(NFactura); UPDATE ProvBasesIva SET NFactura = "
      "lower(NFactura)");
  Cargar();
  Otro(
      "UPDATE ProvVencimientos SET Pagado = 7, ModificadoPor = 'EVA' WHERE FechaVto = '20050302';"
      "UPDATE ProvFacturas SET Total = 1, ModificadoPor = 'EVA' WHERE Factura = 'F000001';"
      "DELETE FROM ProvFacturas WHERE Factura = 'F000002'; DELETE FROM ProvVencimientos WHERE "
      "NFactura = 'f000002'; DELETE FROM ProvBasesIva WHERE NFactura = 'f000002'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], AllOf(HasSubstr("(2 facturas)"), HasSubstr("la ha cambiado EVA, y"),
                                  HasSubstr("otro usuario la ha borrado, y se volvería a grabar")));
}

TEST_F(LoDeOtros, UnConceptoEsElMismoEnMinusculas) {
  Otro(
      "UPDATE ProvConceptos SET NConcepto = 'LUZ' WHERE NConcepto = '2'; UPDATE ProvFacturas SET "
      "NConcepto = 'Luz' WHERE NConcepto = '2'; UPDATE ProvVencimientos SET NConcepto = 'luz' "
      "WHERE NConcepto = '2'; UPDATE ProvBasesIva SET NConcepto = 'LUZ' WHERE NConcepto = '2'");
  Cargar();
  Otro("UPDATE ProvVencimientos SET Pagado = 7, ModificadoPor = 'EVA' WHERE NConcepto = 'luz'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0],
              AllOf(HasSubstr("(1 factura)"), HasSubstr("de Proveedor número 1 ("),
                    HasSubstr(", por 322,45: la ha cambiado EVA (vencimiento 02/03/2005 por 110,15:"
                              " pagado 7,00, antes nada; ")));
}

TEST_F(LoDeOtros, LoHaCambiadoQuienEscribioLoDistinto) {
  Otro("UPDATE ProvFacturas SET ModificadoPor = 'CARMEN'");
  Cargar();
  Otro(
      "UPDATE ProvVencimientos SET Pagado = 5, ModificadoPor = 'LUIS', Actualizado = '2005-03-15 "
      "09:00:00' WHERE FechaVto = '20050302';"
      "UPDATE ProvVencimientos SET Pagado = 7, ModificadoPor = 'EVA', Actualizado = '2005-03-15 "
      "10:00:00' WHERE FechaVto = '20050312'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], HasSubstr("la ha cambiado EVA"));
}

/// A load looks for bases without their invoice and their year, and a "Grabar" writes them again.
TEST_F(LoDeOtros, UnaBaseSinFacturaQueOtroBorroSePregunta) {
  Otro(
      "INSERT INTO ProvBasesIva (NConcepto, NFactura, Año, Tipo, Base) VALUES ('1', 'F000000', "
      "'2004', '1', 10), ('1', 'F000000', '2004', '2', 20)");
  Cargar();
  Otro("DELETE FROM ProvBasesIva WHERE Año = '2004' AND Tipo = '1'");
  Grabar();
  EXPECT_THAT(Preguntas, ElementsAre(AllOf(HasSubstr("(1 factura)"),
                                           HasSubstr("lo que ha quitado se volvería a grabar"))));
}

TEST_F(LoDeOtros, UnaBaseDeUnaFacturaDeOtrasFechasQueOtroBorroSePregunta) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'F000000 ', "
      "'2004', '20041210', 50); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'F000000 ', '2004', '20041231', 50); INSERT INTO ProvBasesIva "
      "(NConcepto, NFactura, Año, Tipo, Base) VALUES ('1', 'F000000', '2004', '1', 10), ('1', "
      "'F000000', '2004', '2', 20)");
  Cargar();
  Otro("DELETE FROM ProvBasesIva WHERE Año = '2004' AND Tipo = '1'");
  Grabar();
  EXPECT_THAT(Preguntas, ElementsAre(AllOf(HasSubstr("(1 factura)"),
                                           HasSubstr("lo que ha quitado se volvería a grabar"))));
}

/// What isn't in the working copy any more isn't written again.
TEST_F(LoDeOtros, UnaBaseDeOtroEjercicioQueLosDosHanQuitadoNoSePregunta) {
  Otro(
      "INSERT INTO ProvBasesIva (NConcepto, NFactura, Año, Tipo, Base) VALUES ('1', 'F000000', "
      "'2004', '1', 10), ('1', 'F000000', '2004', '2', 20)");
  Cargar();
  Trabajar("DELETE FROM TempProvBasesIva WHERE Año = '2004'");
  Otro("DELETE FROM ProvBasesIva WHERE Año = '2004' AND Tipo = '1'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

/// Of an invoice that the load left out the working copy has the bases: they alone come back.
TEST_F(LoDeOtros, DeUnaFacturaQueNoEstaEnLaListaNoDiceQueQuedaria) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5, ModificadoPor = 'EVA' WHERE NConcepto = '2'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], HasSubstr("la ha cambiado EVA, y se borraría"));
}

TEST_F(LoDeOtros, DeUnaFacturaBorradaQueNoEstaEnLaListaQuedarianSusBases) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  Otro(
      "DELETE FROM ProvFacturas WHERE NConcepto = '2'; DELETE FROM ProvVencimientos WHERE "
      "NConcepto = '2'; DELETE FROM ProvBasesIva WHERE NConcepto = '2'");
  Grabar();
  EXPECT_THAT(Preguntas, ElementsAre(HasSubstr("otro usuario la ha borrado, y solo quedarían sus "
                                               "bases de IVA")));
}

TEST_F(LoDeOtros, UnaFilaSinCargarQueOtroBorroNoSeBorraria) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  Otro("DELETE FROM ProvVencimientos WHERE NConcepto = '2' AND FechaVto = '20050302'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(
      Preguntas[0],
      AllOf(HasSubstr("que se borrarían (1 factura, 2 vencimientos)"),
            HasSubstr("(vencimiento 12/03/2005; vencimiento 22/03/2005): su concepto no existe")));
}

/// A concept has one forecast, whatever its date.
TEST_F(LoDeOtros, UnaPrevisionSinCargarQueOtroAplazoSeBorraria) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('X9', "
      "'20050101', 1, 2, 50)");
  Cargar();
  Otro("UPDATE ProvPrevisionPagos SET Fecha1Vto = '20050201'");
  Grabar();
  EXPECT_THAT(Preguntas, ElementsAre(HasSubstr("que se borrarían (1 previsión)")));
}

/// A "Grabar" deletes the forecasts up to the range's end, and can't write a second one of a
/// concept.
TEST_F(LoDeOtros, LasPrevisionesQueOtroAplazoMasAllaDelRangoSeguirianComoEstan) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050101', 1, 2, 50), ('8', '20050101', 1, 2, 50), ('9', '20050101', 1, 2, 50)");
  Cargar();
  Trabajar("DELETE FROM TempProvPrevisionPagos WHERE NConcepto = '8'");
  Otro(
      "UPDATE ProvPrevisionPagos SET Fecha1Vto = '20050401', ModificadoPor = 'EVA' WHERE NConcepto "
      "<> '9'; UPDATE ProvPrevisionPagos SET Fecha1Vto = '20050331' WHERE NConcepto = '9'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(
      Preguntas[0],
      AllOf(HasSubstr("Proveedor número 6 (7), por 50,00: la ha cambiado EVA, y seguiría "
                      "como está: la de la lista no se grabaría"),
            HasSubstr("Proveedor número 7 (8), por 50,00: la ha cambiado EVA, y seguiría "
                      "como está: no se borraría"),
            HasSubstr("Proveedor número 8 (9), por 50,00: la ha cambiado otro usuario, y quedaría "
                      "como está en la lista")));
  EXPECT_THAT(Consulta("SELECT Fecha1Vto FROM ProvPrevisionPagos ORDER BY NConcepto"),
              ElementsAre("20050401", "20050401", "20050101"));
  EXPECT_THAT(Contado(), AllOf(HasSubstr("su concepto ya tiene otra, que sigue como estaba (1 "
                                         "previsión):\n· previsión de Proveedor número 6 (7)"),
                               Not(HasSubstr("su número"))));
}

/// A "Grabar" deletes the invoices with a due date in the range, and writes those of the working
/// copy.
TEST_F(LoDeOtros, LasFacturasQueOtroLlevaAOtroMesNoSeBorranYTendrianTambienLosDelRango) {
  Cargar();
  Trabajar(
      "DELETE FROM TempProvFacturas WHERE Factura = 'F000001'; DELETE FROM TempProvBasesIva WHERE "
      "NFactura = 'F000001'; DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001'");
  Otro(
      "UPDATE ProvVencimientos SET FechaVto = replace(FechaVto, '200503', '200504'), ModificadoPor "
      "= "
      "'EVA' WHERE NFactura <> 'F000002'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(
      Preguntas[0],
      AllOf(ContainsRegex("F000000 .*lo que ha quitado se volvería a grabar"),
            ContainsRegex("F000001 .*la ha cambiado EVA, y seguiría como está: no se borraría"),
            Not(HasSubstr("quedaría como está en la lista")), Not(HasSubstr("F000002"))));
  EXPECT_THAT(Consulta("SELECT count(*) FROM ProvVencimientos GROUP BY NFactura"),
              ElementsAre("6", "3", "3"));
}

TEST_F(LoDeOtros, UnaPrevisionQueOtroBorroSeVolveriaAGrabar) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050101', 1, 2, 50)");
  Cargar();
  Otro("DELETE FROM ProvPrevisionPagos");
  Grabar();
  EXPECT_THAT(Preguntas,
              ElementsAre(HasSubstr("otro usuario la ha borrado, y se volvería a grabar")));
}

/// Whoever entered it, and whenever: a load doesn't bring it.
TEST_F(LoDeOtros, UnaPrevisionDeUnConceptoQueTieneOtraPosteriorNoSeGrabaria) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050401', 1, 2, 50)");
  Cargar();
  Trabajar("INSERT INTO TempProvPrevisionPagos (NConcepto, Fecha1Vto) VALUES ('7', '20050302')");
  Grabar();
  EXPECT_THAT(Preguntas,
              ElementsAre(AllOf(HasSubstr("las de la lista no se grabarían (1 previsión)"),
                                Not(HasSubstr("tro usuario")), Not(HasSubstr("facturas")))));
  EXPECT_THAT(Consulta("SELECT Fecha1Vto FROM ProvPrevisionPagos"), ElementsAre("20050401"));
}

TEST_F(LoDeOtros, UnaPrevisionSinCargarQueOtroAplazoMasAllaDelRangoNoSeBorraria) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('X9', "
      "'20050101', 1, 2, 50)");
  Cargar();
  Otro("UPDATE ProvPrevisionPagos SET Fecha1Vto = '20050401'");
  Grabar();
  EXPECT_THAT(Preguntas, ElementsAre(Not(HasSubstr("que se borrarían"))));
  EXPECT_THAT(Consulta("SELECT Fecha1Vto FROM ProvPrevisionPagos"), ElementsAre("20050401"));
}

TEST_F(LoDeOtros, TrasUnNoLoQueElOtroDeshaceNoSePregunta) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Otro("UPDATE ProvFacturas SET Total = 322.45 WHERE Factura = 'F000001'");
  Preguntas.clear();
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(LoDeOtros, TrasUnNoSePreguntaPorLoQueNoEsComoAlCargar) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Otro("UPDATE ProvFacturas SET Total = 50 WHERE Factura = 'F000001'");
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], HasSubstr("por 50,00, antes 322,45"));
}

TEST_F(LoDeOtros, LoAceptadoQueVuelveACambiarMientrasSePreguntaSePreguntaDeNuevo) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  MientrasPregunta = [this] {
    if (Preguntas.size() == 1) Otro("UPDATE ProvFacturas SET Total = 50 WHERE Factura = 'F000001'");
  };
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], HasSubstr("por 50,00, antes 322,45"));
}

TEST_F(LoDeOtros, LoQueElOtroDeshaceMientrasSePreguntaNoSePreguntaDeNuevo) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  MientrasPregunta = [this] {
    Otro("UPDATE ProvFacturas SET Total = 322.45 WHERE Factura = 'F000001'");
  };
  Grabar();
  EXPECT_THAT(Preguntas, SizeIs(1));
}

/// It was gone at the first "Grabar", and is again as the load left it out.
TEST_F(LoDeOtros, LoQueNoSeCargoYElOtroRepusoTrasUnNoSeBorraria) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  Otro(
      "CREATE TABLE Apartados AS SELECT * FROM ProvVencimientos WHERE NConcepto = '2';"
      "DELETE FROM ProvVencimientos WHERE NConcepto = '2'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Otro("INSERT INTO ProvVencimientos SELECT * FROM Apartados; DROP TABLE Apartados");
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], HasSubstr("que se borrarían (1 factura, 3 vencimientos)"));
}

}  // namespace
