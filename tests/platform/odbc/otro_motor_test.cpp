#include <gmock/gmock.h>

#include <cstdlib>

#include "apoyo/errores.h"
#include "datos/recordset.h"
#include "odbc/conexion_odbc.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

// An engine that nobody here knows takes the statements as the system writes them. It is a file of
// the embedded one, reached by a driver of others.

namespace {

namespace error = services::error;
using services::ModoApertura;
using services::Recordset;
using testing::ElementsAre;

class OtroMotor : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("TESVARA_POSTGRESQL")) GTEST_SKIP() << "no hay servidores";
    sqlite::AbrirConexion(fichero, {.Crear = true})
        ->Ejecutar(
            "CREATE TABLE ProvFacturas (NConcepto VARCHAR(10) NOT NULL, Factura VARCHAR(20) NOT "
            "NULL, Año VARCHAR(10) NOT NULL, Fecha VARCHAR(10), Total DECIMAL(15,2), PRIMARY KEY "
            "(NConcepto, Factura, Año)); CREATE TABLE ProvVencimientos (NConcepto VARCHAR(10) NOT "
            "NULL, NFactura VARCHAR(20) NOT NULL, Año VARCHAR(10) NOT NULL, FechaVto VARCHAR(10) "
            "NOT NULL, Importe DECIMAL(15,2), PRIMARY KEY (NConcepto, NFactura, Año, FechaVto))");
    conexion = odbc::AbrirConexion("Driver=SQLite3;Database=" + fichero);
  }
  services::Ref<Recordset> Abrir(const std::string& sentencia,
                                 ModoApertura modo = ModoApertura::Optimista) {
    auto rs = services::Crear<Recordset>();
    rs->Open(sentencia, *conexion, modo);
    return rs;
  }
  void Nueva(Recordset& rs, const char* factura, double total) {
    rs.AddNew();
    rs.Collect("NConcepto") = "400";
    rs.Collect("Factura") = factura;
    rs.Collect("Año") = "2005";
    rs.Collect("Fecha") = "20050110";
    rs.Collect("Total") = total;
    rs.Update();
  }
  std::vector<std::string> Guardadas() {
    std::vector<std::string> filas;
    const auto leidas =
        sqlite::AbrirConexion(fichero)->Consultar("SELECT Factura, Total FROM ProvFacturas").Filas;
    for (std::size_t i = 0; i < leidas.Cuantas(); ++i) {
      filas.push_back(leidas.En(i, 0).Texto() + ":" + leidas.En(i, 1).Texto());
    }
    return filas;
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("otro.db");
  services::Ref<odbc::Conexion> conexion;
};

TEST_F(OtroMotor, SeLeeSeAnadeSeCambiaYSeBorraComoSeEscribe) {
  EXPECT_EQ(conexion->Motor().Nombre, "ODBC");
  const auto rs = Abrir("SELECT ProvFacturas.* FROM ProvFacturas");
  Nueva(*rs, " F1 ", 10.25);
  Nueva(*rs, "F2", 20);
  Nueva(*rs, "F3", 30);
  conexion->TerminarUnidad();
  const auto una = Abrir(
      "SELECT ProvFacturas.* FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like 'F1' "
      "And ProvFacturas.NConcepto like '400' and ProvFacturas.Año like '2005'",
      ModoApertura::Pesimista);
  ASSERT_FALSE(una->Eof());
  EXPECT_EQ(una->Fields("Total").Value.Texto(), "10,25");
  una->Fields("Total").Value = "11,5";
  una->Update();
  Abrir(
      "DELETE FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like 'F2' AND "
      "ProvFacturas.NConcepto like '400' And ProvFacturas.Año like '2005'");
  conexion->TerminarUnidad();
  EXPECT_THAT(Guardadas(), ElementsAre(" F1 :11,5", "F3:30"));
}

TEST_F(OtroMotor, LoQueEraNuloSeCambiaTambienEnModoOptimista) {
  sqlite::AbrirConexion(fichero)->Ejecutar(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año) VALUES ('400', 'F1', '2005')");
  const auto una = Abrir("SELECT ProvFacturas.* FROM ProvFacturas");
  una->Fields("Total").Value = 7.5;
  una->Fields("Fecha").Value = "20050110";
  una->Update();
  conexion->TerminarUnidad();
  EXPECT_THAT(Guardadas(), ElementsAre("F1:7,5"));
}

TEST_F(OtroMotor, UnaUnidadEsTodoONada) {
  const auto rs = Abrir("SELECT ProvFacturas.* FROM ProvFacturas");
  Nueva(*rs, "F1", 1);
  conexion->TerminarUnidad();
  Nueva(*rs, "F2", 2);
  EXPECT_EQ(apoyo::NumeroDeError([&] { Nueva(*rs, "F1", 3); }), error::RepetidoONoCabe);
  rs->CancelUpdate();
  conexion->AbandonarUnidad();
  EXPECT_THAT(Guardadas(), ElementsAre("F1:1"));
}

TEST_F(OtroMotor, LaCargaLeeLasJuntasTalComoSeEscriben) {
  Nueva(*Abrir("SELECT ProvFacturas.* FROM ProvFacturas"), "F1", 1);
  const auto vtos = Abrir("SELECT ProvVencimientos.* FROM ProvVencimientos");
  for (const char* dia : {"20050310", "20050320"}) {
    vtos->AddNew();
    vtos->Collect("NConcepto") = "400";
    vtos->Collect("NFactura") = "F1";
    vtos->Collect("Año") = "2005";
    vtos->Collect("FechaVto") = dia;
    vtos->Update();
  }
  conexion->TerminarUnidad();
  const auto leidas = Abrir(
      "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
      "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '20050301' And "
      "ProvVencimientos.FechaVto <= '20050331' Order By ProvFacturas.Fecha",
      ModoApertura::Lectura);
  EXPECT_EQ(leidas->RecordCount(), 1);
  EXPECT_EQ(leidas->Fields("Factura").Value.Texto(), "F1");
}

}  // namespace
