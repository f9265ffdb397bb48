#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"
#include "valores/error.h"

// What the suite asks before a "Grabar", and what it tells after it.

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class Guardia : public testing::Test, protected pruebas::Oficina {
 protected:
  std::string Factura(const std::string& numero) {
    const auto totales =
        Consulta("SELECT Total FROM ProvFacturas WHERE Factura = '" + numero + "'");
    return totales.empty() ? "no está" : totales.front();
  }
};

TEST_F(Guardia, NoPreguntaNiCuentaNadaCuandoNadaSePierde) {
  Cargar();
  Grabar();
  Cargar();
  EXPECT_THAT(Preguntas, IsEmpty());
  EXPECT_EQ(Contado(), "");
  EXPECT_EQ(Avisos, 0);
}

TEST_F(Guardia, PreguntaAntesDeDeshacerLoDeOtro) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 99.5, ModificadoPor = 'EVA' WHERE Factura = 'F000001'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_EQ(Preguntas[0],
            "Otro usuario ha cambiado lo que había al cargar (1 factura):\n"
            "· factura F000001 de 2005 de Proveedor número 1 (2), por 99,50, antes 322,45: la ha "
            "cambiado EVA, y volvería a "
            "ser como era"
            "\n\n¿Grabar de todos modos?");
  EXPECT_NE(Factura("F000001"), "99,5") << "con Sí se graba";
}

TEST_F(Guardia, ConNoNoSeGrabaNadaYSePuedeGrabarDespues) {
  Cargar();
  Trabajar("UPDATE TempProvFacturas SET Total = 5 WHERE Factura = 'F000000'");
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  const auto antes = Todo();
  Respuesta = false;
  EXPECT_EQ(apoyo::NumeroDeError([this] { Grabar(); }), services::error::OperacionCancelada);
  EXPECT_EQ(Todo(), antes);
  Respuesta = true;
  Grabar();
  EXPECT_EQ(Factura("F000000"), "5");
  EXPECT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Guardadas(), SizeIs(1)) << "solo queda la de lo que se grabó";
}

TEST_F(Guardia, VuelveAPreguntarPorLoQueCambiaMientrasSePregunta) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 1 WHERE Factura = 'F000001'");
  MientrasPregunta = [this] {
    if (Preguntas.size() == 1) Otro("UPDATE ProvFacturas SET Total = 2 WHERE Factura = 'F000002'");
  };
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], AllOf(HasSubstr("F000002"), Not(HasSubstr("F000001"))));
}

TEST_F(Guardia, MientrasSePreguntaNoHayCopiaNiCerrojo) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 1 WHERE Factura = 'F000001'");
  MientrasPregunta = [this] {
    EXPECT_TRUE(std::filesystem::is_empty(Carpeta() + "/copias"));
    Otro("UPDATE CajaPagos SET Observaciones = 'nadie espera'");
  };
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  EXPECT_THAT(Preguntas, SizeIs(1));
  EXPECT_TRUE(std::filesystem::is_empty(Carpeta() + "/copias"));
}

TEST_F(Guardia, LoQueGrabarNoEscribeDeUnApunteNoSePregunta) {
  Cargar();
  Otro("UPDATE CajaPagos SET Observaciones = 'anotado', ModificadoPor = 'EVA'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
  EXPECT_EQ(Consulta("SELECT DISTINCT Observaciones FROM CajaPagos"),
            std::vector<std::string>{"anotado"});
}

TEST_F(Guardia, LoMismoNoSeCuentaDosVeces) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Total = 1 WHERE Factura = 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Otro("UPDATE ProvFacturas SET Total = 2 WHERE Factura = 'F000001'");
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(2));
  EXPECT_THAT(Preguntas[1], HasSubstr("(1 factura)"));
}

TEST_F(Guardia, LosPagosEscritosSiguenEnLaCopiaSiSeMuereAlPreguntar) {
  Cargar();
  temp->EmpezarUnidad();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  Otro("UPDATE ProvFacturas SET Total = 1 WHERE Factura = 'F000001'");
  MientrasPregunta = [this] {
    const auto otra = Negocio().AbrirTemp();
    EXPECT_EQ(otra->Consultar("SELECT Pagado FROM TempProvVencimientos WHERE FechaVto = '20050302'")
                  .Filas.En(0, 0)
                  .Numero(),
              3);
  };
  Grabar();
}

TEST_F(Guardia, ElNombreDelUsuarioSeCompruebaTambienConElla) {
  EXPECT_EQ(componente.Sesion().CnDatos().ColumnasDe("ProvFacturas").back().Longitud, 30);
}

TEST_F(Guardia, LoQueNoSePuedeMirarSeDaPorPerdido) {
  Cargar();
  Otro("ALTER TABLE ProvPrevisionPagos RENAME TO Quitada");
  guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                          services::Omision::Falta::Fila,
                          "ProvPrevisionPagos",
                          {{"NConcepto", "7"}},
                          {1, "no se escribe"}});
  EXPECT_THAT(Contado(), HasSubstr("previsión de Proveedor número 6 (7): no se escribe"));
}

TEST_F(Guardia, UnaFacturaSinSusApuntesSeDiceSinAmenazas) {
  Otro(
      "UPDATE ProvFacturas SET Factura = 'O''1' WHERE Factura = 'F000001'; UPDATE "
      "ProvVencimientos SET NFactura = 'O''1' WHERE NFactura = 'F000001'; UPDATE ProvBasesIva SET "
      "NFactura = 'O''1' WHERE NFactura = 'F000001'");
  Cargar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("No se han podido buscar los apuntes de caja"),
                               HasSubstr("factura O'1 de 2005"), Not(HasSubstr("borraría"))));
}

TEST_F(Guardia, QuienNoSabeQueHabiaAlCargarPregunta) {
  Otro("ALTER TABLE ProvPrevisionPagos RENAME TO Quitada");
  Cargar();
  EXPECT_THAT(Contado(), HasSubstr("No se ha podido comprobar lo que se ha cargado"));
  Otro("ALTER TABLE Quitada RENAME TO ProvPrevisionPagos");
  guardia->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
  datos->AbandonarUnidad();
  EXPECT_THAT(Preguntas, ElementsAre(HasSubstr("no se sabe si otro usuario")));
}

TEST_F(Guardia, QuienGrabaLoMismoNoCambiaNada) {
  Cargar();
  Otro("UPDATE ProvFacturas SET Actualizado = '2005-03-15 12:00:00', ModificadoPor = 'EVA'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(Guardia, CuentaLoQueOtroAnadioYLoQueBorro) {
  Cargar();
  Otro(
      "INSERT INTO ProvFacturas SELECT NConcepto, 'NUEVA', Año, Fecha, Total, forpago, NRecibos, "
      "Dias1Vto, BIRPF, TipoIRPF, IRPF, Cadencia, Actualizado, 'EVA' FROM ProvFacturas LIMIT 1;"
      "INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe) VALUES ('1', "
      "'NUEVA', '2005', '20050320', 10);"
      "DELETE FROM ProvFacturas WHERE Factura = 'F000002';"
      "DELETE FROM ProvVencimientos WHERE NFactura = 'F000001' AND FechaVto = '20050302'");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0],
              AllOf(HasSubstr("NUEVA de 2005 de Proveedor número 0 (1), por 321,45: la ha añadido "
                              "EVA, y se borraría"),
                    HasSubstr("F000002 de 2005 de Proveedor número 2 (3), por 323,45: otro usuario "
                              "la ha borrado, y se "
                              "volvería a grabar"),
                    HasSubstr("F000001 de 2005 de Proveedor número 1 (2), por 322,45: la ha "
                              "cambiado CARMEN (vencimiento 02/03/2005 por 110,15: borrado)")));
}

TEST_F(Guardia, CuentaLosApuntesYLasPrevisionesQueOtroCambio) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050101', 1, 2, 50)");
  Cargar();
  Otro(
      "UPDATE ProvPrevisionPagos SET Importe = 60, ModificadoPor = 'EVA';"
      "UPDATE CajaPagos SET Factura = 'X', Año = '2005', ModificadoPor = 'EVA' "
      "WHERE Factura IS NULL AND FechaHora = '2005-02-01 00:01:00';"
      "INSERT INTO CajaPagos (idSucursal, FechaHora, Tipo, Importe) VALUES ('9', '2005-03-14 "
      "08:00:00', 1, 5)");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(
      Preguntas[0],
      AllOf(HasSubstr("(1 previsión, 1 apunte de caja)"),
            HasSubstr(
                "previsión de Proveedor número 6 (7), por 60,00, antes 50,00: la ha cambiado EVA"),
            HasSubstr("apunte de caja de 01/02/2005 0:01:00 de Proveedor número 0 (1), por 13,35: "
                      "lo ha cambiado EVA")));
}

TEST_F(Guardia, LoDeOtroEnOtrasFechasNoImporta) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'ABRIL', "
      "'2005', '20050301', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'ABRIL', '2005', '20050410', 10)");
  Cargar();
  Otro(
      "UPDATE ProvFacturas SET Total = 11 WHERE Factura = 'ABRIL'; UPDATE ProvVencimientos SET "
      "Importe = 11 WHERE NFactura = 'ABRIL'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
  EXPECT_EQ(Factura("ABRIL"), "11");
}

TEST_F(Guardia, UnNumeroQueYaEstaEnOtrasFechasSePregunta) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'ABRIL', "
      "'2005', '20050301', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'ABRIL', '2005', '20050410', 10)");
  Cargar();
  Trabajar(
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', "
      "'ABRIL', '2005', '20050301', 77); INSERT INTO TempProvVencimientos (NConcepto, NFactura, "
      "Año, FechaVto, Importe) VALUES ('1', 'ABRIL', '2005', '20050325', 77)");
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0],
              HasSubstr("ABRIL de 2005 de Proveedor número 0 (1), por 10,00: ya está grabada con "
                        "vencimientos de otras fechas"));
  EXPECT_THAT(Contado(), HasSubstr("No se han podido grabar estas filas"));
}

TEST_F(Guardia, SinLaOpcionNoPreguntaPorLosOtros) {
  const auto callada = OtraGuardia(false);
  callada->AlComenzar({salvaguarda::Comienzo::Tarea::Carga, {"20050301", "20050331"}});
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  callada->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
  datos->AbandonarUnidad();
  EXPECT_THAT(Preguntas, IsEmpty());
}

TEST_F(Guardia, LoQueLaCargaDejaFueraSeCuentaUnaVezYSePreguntaAntesDeBorrarlo) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  EXPECT_GT(Avisos, 0);
  const std::string contado = Contado();
  EXPECT_THAT(contado, AllOf(HasSubstr("(1 factura, 3 vencimientos)"),
                             HasSubstr("factura F000001 de 2005 del concepto 2: su concepto no "
                                       "existe"),
                             HasSubstr("vencimiento 02/03/2005 de la factura F000001")));
  Cargar();
  EXPECT_EQ(Contado(), "") << "lo mismo no se repite a cada carga";
  Grabar();
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], HasSubstr("que no se cargaron, y que se borrarían"));
  EXPECT_EQ(Factura("F000001"), "no está");
}

TEST_F(Guardia, LosBlancosDeUnLadoDejanFueraYSeCuentan) {
  Otro(
      "UPDATE ProvVencimientos SET NFactura = NFactura || ' ' WHERE NFactura = 'F000001' AND "
      "FechaVto = '20050302'");
  Cargar();
  EXPECT_THAT(Contado(), AllOf(HasSubstr("(1 vencimiento)"),
                               HasSubstr("sus blancos no son los de su factura")));
}

TEST_F(Guardia, UnaFilaQueLaCopiaNoAdmiteSePreguntaTambien) {
  Trabajar(
      "CREATE TRIGGER SinUna BEFORE INSERT ON TempProvVencimientos WHEN NEW.FechaVto = "
      "'20050302' BEGIN SELECT RAISE(ABORT, 'no'); END");
  Cargar();
  EXPECT_THAT(Contado(), HasSubstr("vencimiento 02/03/2005 de la factura F000001"));
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
}

TEST_F(Guardia, UnaTablaSinCargarSeDiceEnseguida) {
  Otro("ALTER TABLE ProvBasesIva RENAME TO Quitada");
  Cargar();
  EXPECT_THAT(Contado(), HasSubstr("No se ha podido cargar nada de bases de IVA (ProvBasesIva)"));
}

TEST_F(Guardia, UnaTablaSinCargarSeDiceAunqueNoSePuedaAnotar) {
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

TEST_F(Guardia, UnaTablaSinGrabarSeDiceConLasFilasQueSeVanConElla) {
  Cargar();
  Grabar();
  Otro("DELETE FROM ProvBasesIva WHERE NFactura = 'F000001'; DELETE FROM ProvVencimientos");
  guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                          services::Omision::Falta::Tabla,
                          "ProvBasesIva",
                          {},
                          {1, "no se abre"}});
  EXPECT_THAT(
      Contado(),
      AllOf(HasSubstr("No se ha podido grabar nada de bases de IVA (ProvBasesIva): no se abre"),
            HasSubstr("ya no están entre lo grabado; lo que había antes está en Archivo, "
                      "Recuperar una copia (2 bases de IVA):\n· base de IVA 1 de la factura "
                      "F000001 de 2005")));
}

TEST_F(Guardia, UnaFilaQueNoSeGrabaSeCuentaYUnaQueEstaIgualNo) {
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

TEST_F(Guardia, SinSitioParaLaCopiaLoPregunta) {
  Cargar();
  std::ofstream(Carpeta() + "/copias") << "un fichero en su lugar";
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], HasSubstr("No se ha podido guardar una copia"));
}

TEST_F(Guardia, LaCopiaDeAntesSigueAunqueFalteLaDeAhora) {
  Cargar();
  Grabar();
  ASSERT_THAT(Guardadas(), SizeIs(1));
  Cargar();
  Otro("ALTER TABLE ProvBasesIva RENAME TO Quitada");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  EXPECT_THAT(Preguntas, ElementsAre(HasSubstr("No se ha podido guardar una copia")));
  EXPECT_THAT(Guardadas(), SizeIs(1));
}

TEST_F(Guardia, TodoQuedaEnElRegistro) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  const std::string contado = Contado();
  std::ifstream registro(Carpeta() + "/registro.txt");
  std::string linea;
  std::getline(registro, linea);
  EXPECT_THAT(linea, AllOf(HasSubstr("2005-03-15 11:00:00 ANA: No se han cargado"),
                           HasSubstr("F000001"), HasSubstr("22/03/2005")))
      << contado;
}

}  // namespace
