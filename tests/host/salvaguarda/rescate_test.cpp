#include <gmock/gmock.h>

#include <fstream>
#include <optional>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"
#include "salvaguarda/rescate.h"

// What a program that was killed leaves behind, and is offered at the next start.

namespace {

using pruebas::Dicha;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;

class RescateDeUnaMuerte : public testing::Test, protected pruebas::Oficina {
 protected:
  std::optional<salvaguarda::Rescate> Rescate() {
    return salvaguarda::BuscarRescate(*temp, *almacen, Foto());
  }
};

TEST_F(RescateDeUnaMuerte, NoHayNadaQueRescatarDeUnaCopiaSinTocar) {
  EXPECT_FALSE(Rescate()) << "nunca se ha cargado";
  Cargar();
  EXPECT_FALSE(Rescate());
  Grabar();
  EXPECT_FALSE(Rescate()) << "vacía";
}

TEST_F(RescateDeUnaMuerte, UnApunteGuardadoSinSegundosOSinHoraEsElMismo) {
  Otro(
      "UPDATE CajaPagos SET FechaHora = replace(substr(FechaHora, 1, 16), ' ', 'T') WHERE Factura "
      "IS NULL; UPDATE CajaPagos SET FechaHora = '2005-02-0' || (rowid % 9 + 1) WHERE Factura IS "
      "NOT NULL");
  Cargar();
  EXPECT_FALSE(Rescate());
  std::ofstream(Foto()).flush();  // there is no picture
  EXPECT_FALSE(Rescate());
}

TEST_F(RescateDeUnaMuerte, DiceCadaFilaQueNoEsComoLaGrabada) {
  Cargar();
  TrabajarEnFacturas();
  const auto rescate = Rescate();
  ASSERT_TRUE(rescate);
  EXPECT_EQ(rescate->Copia.Rango.Desde, "20050301");
  EXPECT_EQ(rescate->Copia.Usuario, "ANA");
  EXPECT_EQ(rescate->Copia.Momento, "2005-03-15 11:00:00");
  EXPECT_THAT(
      rescate->Filas,
      AllOf(Contains(salvaguarda::Fila{"ProvVencimientos", "2", "F000001", "2005", "20050302",
                                       "se borró"}),
            Contains(salvaguarda::Fila{"ProvVencimientos", "1", "F000000", "2005", "20050301",
                                       "se cambió"}),
            Contains(salvaguarda::Fila{"ProvFacturas", "1", "NUEVA", "2005", "", "se añadió"}),
            Contains(Field(&salvaguarda::Fila::Tabla, "CajaPagos"))));
}

TEST_F(RescateDeUnaMuerte, BuscarloNoCierraLasTablasDeLaEmpresaANadie) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050301'");
  temp->TerminarUnidad();
  const auto deTrabajo = sqlite::AbrirConexion(Negocio().FicheroTemp(), {.UnidadDeTrabajo = true});
  ASSERT_TRUE(salvaguarda::BuscarRescate(*deTrabajo, *almacen, Foto()));
  Otro("UPDATE ProvFacturas SET Total = Total");
}

TEST_F(RescateDeUnaMuerte, LoQueOtroHizoDespuesNoEsSuyo) {
  Cargar();
  Otro(
      "UPDATE ProvFacturas SET Total = 99 WHERE Factura = 'F000001';"
      "DELETE FROM ProvVencimientos WHERE FechaVto = '20050301';"
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('5', 'DE-OTRO', "
      "'2005', '20050301', 9); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('5', 'DE-OTRO', '2005', '20050307', 9)");
  EXPECT_FALSE(Rescate()) << "nada suyo está sin grabar";
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  const auto rescate = Rescate();
  ASSERT_TRUE(rescate);
  EXPECT_TRUE(rescate->ConFoto);
  EXPECT_THAT(rescate->Filas, ElementsAre(salvaguarda::Fila{"ProvVencimientos", "2", "F000001",
                                                            "2005", "20050302", "se cambió"}));
}

TEST_F(RescateDeUnaMuerte, RetomadaSePreguntaPorLoQueOtroHizoDesdeSuCarga) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  Otro("UPDATE ProvFacturas SET Total = 99, ModificadoPor = 'EVA' WHERE Factura = 'F000000'");
  const auto otra = OtraGuardia();
  otra->AlRetomar(*Rescate());
  otra->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
  datos->AbandonarUnidad();
  EXPECT_THAT(Preguntas,
              ElementsAre(testing::HasSubstr("F000000 de 2005 de Proveedor número 0 (1), por "
                                             "99,00, antes 321,45: la ha cambiado EVA")));
}

TEST_F(RescateDeUnaMuerte, SinFotoSePreguntaPorTodoLoDistinto) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  auto rescate = Rescate();
  rescate->Copia.Foto = "otra";
  guardia->AlRetomar(*rescate);
  guardia->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
  datos->AbandonarUnidad();
  EXPECT_THAT(Preguntas, ElementsAre(testing::HasSubstr("vencimiento 02/03/2005")));
}

TEST_F(RescateDeUnaMuerte, SinFotoSePreguntaTambienPorLoQueOtroGraboMientrasSeOfrecia) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  auto rescate = Rescate();
  rescate->Copia.Foto = "otra";
  Otro(
      "UPDATE ProvFacturas SET Total = 99 WHERE Factura = 'F000002'; INSERT INTO ProvFacturas "
      "(NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'NUEVA', '2005', '20050301', 9); "
      "INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe) VALUES ('1', "
      "'NUEVA', '2005', '20050307', 9)");
  guardia->AlRetomar(*rescate);
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  EXPECT_THAT(Preguntas,
              ElementsAre(AllOf(testing::HasSubstr("F000002"), testing::HasSubstr("NUEVA"))));
}

TEST_F(RescateDeUnaMuerte, SinFotoLaCopiaTieneLosApuntesQueSeEnlazan) {
  const std::string enlaces = "SELECT FechaHora || ' ' || ifnull(Factura, '') FROM CajaPagos";
  Cargar();
  Trabajar("UPDATE TempCajaPagos SET Factura = 'F00000' || (Tipo - 1), Año = '2005'");
  Otro("UPDATE CajaPagos SET Factura = 'DE-EVA', Año = '2004' WHERE Factura IS NULL");
  const auto deEva = Consulta(enlaces);
  auto rescate = Rescate();
  rescate->Copia.Foto = "otra";
  guardia->AlRetomar(*rescate);
  Grabar();
  EXPECT_NE(Consulta(enlaces), deEva);
  guardia->Reponer(Guardadas().front());
  EXPECT_EQ(Consulta(enlaces), deEva);
}

TEST_F(RescateDeUnaMuerte, TrasUnNoLoDeOtroNoEsSuyo) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  Otro("UPDATE ProvFacturas SET Total = 99 WHERE Factura = 'F000000'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  const auto rescate = Rescate();
  ASSERT_TRUE(rescate);
  EXPECT_THAT(rescate->Filas,
              ElementsAre(Dicha({"ProvVencimientos", "2", "F000001", "2005", "20050302"})));
}

TEST_F(RescateDeUnaMuerte, TrasUnNoLoDeOtroSeSiguePreguntandoAunqueSeMuera) {
  Cargar();
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  Otro("UPDATE ProvFacturas SET Total = 99 WHERE Factura = 'F000000'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  guardia->AlRetomar(*Rescate());
  Preguntas.clear();
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  EXPECT_THAT(Preguntas,
              ElementsAre(AllOf(testing::HasSubstr("Otro usuario ha cambiado"),
                                testing::HasSubstr("factura F000000"),
                                testing::Not(testing::HasSubstr("vencimiento 02/03/2005")))));
}

TEST_F(RescateDeUnaMuerte, UnaCargaIncompletaNoSePuedeAbrir) {
  Otro("ALTER TABLE ProvPrevisionPagos RENAME TO Quitada");
  Cargar();
  Contado();
  Otro("ALTER TABLE Quitada RENAME TO ProvPrevisionPagos");
  Trabajar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  const auto rescate = Rescate();
  ASSERT_TRUE(rescate);
  EXPECT_FALSE(rescate->Copia.Completa);
}

}  // namespace
