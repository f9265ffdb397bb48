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
            "cambiado EVA, y quedaría como está en la lista"
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
  EXPECT_THAT(Preguntas[0], AllOf(HasSubstr("ya están grabadas con vencimientos de otras fechas"),
                                  HasSubstr("ABRIL de 2005 de Proveedor número 0 (1), por 10,00"),
                                  Not(HasSubstr("Otro usuario"))));
  EXPECT_THAT(Contado(), HasSubstr("ya hay otras con su número y su fecha"));
}

TEST_F(Guardia, SinLaOpcionNoPreguntaPorLosOtros) {
  const auto callada = OtraGuardia(false);
  callada->AlComenzar({salvaguarda::Comienzo::Tarea::Carga, {"20050301", "20050331"}});
  Otro("UPDATE ProvFacturas SET Total = 99.5 WHERE Factura = 'F000001'");
  callada->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
  datos->AbandonarUnidad();
  EXPECT_THAT(Preguntas, IsEmpty());
}

/// A commit that fails after a yes hasn't saved anything, and the next one asks again.
TEST_F(Guardia, UnSiValeParaUnSoloGrabar) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  Cargar();
  for (int veces = 0; veces < 2; ++veces) {
    guardia->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
    datos->AbandonarUnidad();
  }
  EXPECT_THAT(Preguntas, ElementsAre(HasSubstr("se borrarían"), HasSubstr("se borrarían")));
}

/// What a "Grabar" of the range doesn't touch, and the list has nevertheless.
TEST_F(Guardia, LoQueOtroPagaDeOtroEjercicioSigueComoLoDejo) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'F000000 ', "
      "'2004', '20040201', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'F000000', '2004', '20040310', 10)");
  Cargar();
  Otro("UPDATE ProvVencimientos SET Pagado = 10 WHERE Año = '2004'");
  Grabar();
  EXPECT_THAT(Preguntas, IsEmpty());
  EXPECT_THAT(Contado(), AllOf(HasSubstr("siguen como estaban"),
                               HasSubstr("vencimiento 10/03/2004 de la factura F000000 de 2004")));
}

/// Its file is written without care for the power.
TEST_F(Guardia, UnaFotoEstropeadaSeHaceDeNuevo) {
  Cargar();
  for (const int desde : {0, 4096}) {
    guardia.reset();
    std::fstream fichero(Foto(), std::ios::in | std::ios::out | std::ios::binary);
    fichero.seekp(desde) << std::string(50'000, '\xff');
    fichero.close();
    guardia = OtraGuardia();
    for (const auto que :
         {salvaguarda::Comienzo::Tarea::Carga, salvaguarda::Comienzo::Tarea::Grabacion}) {
      guardia->AlComenzar({que, {"20050301", "20050331"}});
    }
    datos->AbandonarUnidad();
    EXPECT_THAT(Preguntas, IsEmpty()) << desde;
    EXPECT_EQ(Contado(), "") << desde;
  }
}

TEST_F(Guardia, SinSitioParaLaCopiaLoPregunta) {
  Cargar();
  std::ofstream(Carpeta() + "/copias") << "un fichero en su lugar";
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  ASSERT_THAT(Preguntas, SizeIs(1));
  EXPECT_THAT(Preguntas[0], AllOf(HasSubstr("No se ha podido guardar una copia"),
                                  HasSubstr("/copias: hay un fichero en su lugar")));
}

/// Nobody can make a file there, not even the administrator.
TEST_F(Guardia, DondeNoSePuedeEscribirLaCopiaDiceDondeYNoLaPromete) {
  Cargar();
  std::filesystem::create_directory_symlink("/proc", Carpeta() + "/copias");
  Otro(
      "CREATE TRIGGER SinUna BEFORE INSERT ON ProvFacturas WHEN NEW.Factura = 'F000002' BEGIN "
      "SELECT RAISE(ABORT, 'no cabe'); END");
  Grabar();
  EXPECT_THAT(Preguntas,
              ElementsAre(HasSubstr(": No se puede escribir en " + Carpeta() + "/copias: ")));
  EXPECT_THAT(Contado(), AllOf(HasSubstr("No están entre lo grabado (1 factura)"),
                               Not(HasSubstr("Recuperar una copia"))));
  std::filesystem::remove(Carpeta() + "/copias");
  Cargar();
  Trabajar(
      "INSERT INTO TempProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('3', "
      "'F000002', "
      "'2005', '20050301', 9)");
  Grabar();
  EXPECT_THAT(Contado(), HasSubstr("Recuperar una copia (1 factura)"));
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
