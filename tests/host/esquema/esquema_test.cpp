#include "esquema/esquema_sqlite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialecto/interprete.h"
#include "dialecto/sentencias.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/catalogo_sqlite.h"
#include "sqlite/dialecto_sqlite.h"
#include "valores/error.h"

namespace {

using testing::ElementsAre;

class EsquemaTest : public testing::Test {
 protected:
  EsquemaTest() {
    esquema::CrearAlmacenadas(*conexion);
    esquema::CrearDeTrabajo(*conexion);
  }

  std::vector<std::string> Columnas(const std::string& tabla) {
    std::vector<std::string> nombres;
    const auto filas = conexion->Consultar("PRAGMA table_info(" + tabla + ")").Filas;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) nombres.push_back(filas.En(i, 1).Texto());
    return nombres;
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion =
      sqlite::AbrirConexion(carpeta.Fichero("datos.db"), {.Crear = true});
};

TEST_F(EsquemaTest, LaFacturaTieneSuOrdenYSuCopiaLasTrecePrimeras) {
  EXPECT_THAT(Columnas("ProvFacturas"),
              ElementsAre("NConcepto", "Factura", "Año", "Fecha", "Total", "forpago", "NRecibos",
                          "Dias1Vto", "BIRPF", "TipoIRPF", "IRPF", "Cadencia", "Actualizado",
                          "ModificadoPor"));
  auto esperadas = Columnas("ProvFacturas");
  esperadas.back() = "Descripcion";
  EXPECT_EQ(Columnas("TempProvFacturas"), esperadas);
}

TEST_F(EsquemaTest, LasTablasDeTrabajoNoTienenLimites) {
  for (const esquema::Tabla& tabla : esquema::DeTrabajo()) {
    for (const esquema::Columna& columna : tabla.Columnas) {
      EXPECT_EQ(columna.Longitud, 0) << tabla.Nombre << "." << columna.Nombre;
    }
    EXPECT_EQ(esquema::TextoDeCreacion(tabla).find("VARCHAR"), std::string::npos);
    EXPECT_EQ(esquema::TextoDeCreacion(tabla).find("DECIMAL("), std::string::npos);
  }
}

TEST_F(EsquemaTest, LaCopiaDeBasesTieneLasSiete) {
  auto esperadas = Columnas("ProvBasesIva");
  ASSERT_EQ(esperadas.size(), 9U);
  esperadas.resize(7);
  EXPECT_EQ(Columnas("TempProvBasesIva"), esperadas);
}

TEST_F(EsquemaTest, LaCopiaDeVencimientosAcabaEnDescripcionYVisible) {
  EXPECT_THAT(Columnas("TempProvVencimientos"),
              ElementsAre("NConcepto", "NFactura", "Año", "FechaVto", "Importe", "Pagado",
                          "Fechapago", "Actualizado", "Descripcion", "Visible"));
}

TEST_F(EsquemaTest, LaCopiaDePrevisionesTieneLaDescripcionEnLaPosición5) {
  EXPECT_THAT(Columnas("TempProvPrevisionPagos"),
              ElementsAre("NConcepto", "Fecha1Vto", "Cada", "Tipo", "Importe", "Descripcion"));
}

TEST_F(EsquemaTest, LaCajaYSuCopiaTienenLasMismasDiez) {
  EXPECT_EQ(Columnas("CajaPagos").size(), 10U);
  EXPECT_EQ(Columnas("CajaPagos"), Columnas("TempCajaPagos"));
}

TEST_F(EsquemaTest, LaListaYSusBorradosTienenSusColumnas) {
  EXPECT_THAT(Columnas("TempTesvara"), ElementsAre("Concepto", "FechaVto", "NFactura", "Importe",
                                                   "Pagado", "NConcepto", "Año", "Prevision"));
  EXPECT_THAT(Columnas("TempTesvaraBorrar"), ElementsAre("NConcepto", "FechaVto", "Importe"));
  EXPECT_THAT(Columnas("SorvexBorrados"), ElementsAre("Clave", "Momento", "Usuario", "Sentencia"));
}

TEST_F(EsquemaTest, CrearLoQueYaEstáFallaYNoDejaNadaAMedias) {
  EXPECT_THROW(esquema::CrearAlmacenadas(*conexion), services::ErrorEjecucion);
  conexion->Ejecutar("BEGIN; COMMIT;");
}

/// How the engine goes about a statement of the system.
class PlanTest : public EsquemaTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string Plan(std::string_view escrita,
                   const dialecto::Motor& motor = sqlite::DialectoSqlite) {
    sqlite::Base base(carpeta.Fichero("datos.db"), {});
    sqlite::Catalogo catalogo(base);
    const auto leida =
        dialecto::Interprete(motor, catalogo).Leer(escrita, services::ModoApertura::Lectura);
    ordenaQuienLee = !leida.Traducida->Orden.Ninguno();
    std::string plan;
    const auto filas = conexion->Consultar("EXPLAIN QUERY PLAN " + leida.Traducida->Texto).Filas;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
      // What was found a line before is gone through, and no table.
      const std::string paso = filas.En(i, 3).Texto();
      if (!paso.starts_with("SCAN filas de ")) plan += paso + "\n";
    }
    return plan;
  }

  bool ordenaQuienLee = false;
};

class PlanDeLoOrdenadoTest : public PlanTest {};

/// Rows that are equal in what they are sorted by stay as the engine comes upon them, which must be
/// the same whoever sorts.
TEST_F(PlanDeLoOrdenadoTest, LoQueOrdenaQuienLeeSeRecorreComoSiLoOrdenaraElMotor) {
  dialecto::Motor ordenaElMotor = sqlite::DialectoSqlite;
  ordenaElMotor.OrdenaQuienLee = false;
  const std::string ordenar = "USE TEMP B-TREE FOR ORDER BY\n";
  int cuantas = 0;
  for (const auto& [modo, escrita] : dialecto::Sentencias()) {
    const std::string sinOrden = Plan(escrita);
    if (!ordenaQuienLee) continue;
    ++cuantas;
    EXPECT_EQ(Plan(escrita, ordenaElMotor), sinOrden + ordenar) << escrita;
  }
  EXPECT_EQ(cuantas, 8);
}

TEST_P(PlanTest, BuscaPorÍndiceYNoRecorreNingunaTabla) {
  const auto plan = Plan(GetParam());
  EXPECT_THAT(plan, testing::HasSubstr("SEARCH")) << plan;
  EXPECT_THAT(plan, testing::Not(testing::HasSubstr("SCAN"))) << plan;
}

class PlanDeUnApunteTest : public PlanTest {};

TEST_P(PlanDeUnApunteTest, VaASuMomentoYNoRecorreLosDeLaSucursal) {
  const auto plan = Plan(GetParam());
  EXPECT_THAT(plan, testing::HasSubstr("(idSucursal=? AND <expr>=? AND Tipo=?)")) << plan;
}

INSTANTIATE_TEST_SUITE_P(
    Grabacion, PlanDeUnApunteTest,
    testing::Values("SELECT CajaPagos.* FROM CajaPagos WHERE CajaPagos.idSucursal like '1' And "
                    "CajaPagos.FechaHora like '15/03/2005 10:00:00' And CajaPagos.Tipo like 45"));

class PlanDeUnApunteDeCajaTest : public PlanTest {};

TEST_P(PlanDeUnApunteDeCajaTest, VaASuMomentoYNoRecorreLosDelConcepto) {
  const auto plan = Plan(GetParam());
  EXPECT_THAT(plan, testing::HasSubstr("(Tipo=? AND <expr>=?)")) << plan;
}

INSTANTIATE_TEST_SUITE_P(
    Pantallas, PlanDeUnApunteDeCajaTest,
    testing::Values(
        "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 45 AND "
        "TempCajaPagos.FechaHora like '15/03/2005 10:00:00' AND (TempCajaPagos.Factura Is Null "
        "OR TempCajaPagos.Factura = '') ORDER BY TempCajaPagos.FechaHora",
        "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 45 AND "
        "TempCajaPagos.FechaHora like '15/03/2005 10:00:00' AND (Trim(TempCajaPagos.Factura) = "
        "'F1' OR TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') ORDER BY "
        "TempCajaPagos.FechaHora"));

class PlanDeUnaFacturaTest : public PlanTest {};

TEST_P(PlanDeUnaFacturaTest, NoRecorreLasDemásDelMismoConcepto) {
  const auto plan = Plan(GetParam());
  EXPECT_THAT(plan, testing::HasSubstr("(<expr>=? AND NConcepto=? AND Año=?)")) << plan;
}

INSTANTIATE_TEST_SUITE_P(
    Grabacion, PlanDeUnaFacturaTest,
    testing::Values(
        "DELETE From ProvBasesIva WHERE ProvBasesIva.NConcepto like '5' and ProvBasesIva.Año "
        "like '2005' and RTRIM(LTRIM(ProvBasesIva.NFactura)) like 'A1'",
        "DELETE From ProvVencimientos WHERE ProvVencimientos.NConcepto like '5' and "
        "ProvVencimientos.Año like '2005' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like 'A1'",
        "DELETE FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like 'A1' AND "
        "ProvFacturas.NConcepto like '5' And ProvFacturas.Año like '2005'",
        "DELETE TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) "
        "like 'A1'And TempProvBasesIva.NConcepto like '5' and TempProvBasesIva.Año like '2005'"));

INSTANTIATE_TEST_SUITE_P(
    Carga, PlanTest,
    testing::Values(
        "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
        "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
        "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
        "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= "
        "'20050301' And ProvVencimientos.FechaVto <= '20050331'  Order By ProvFacturas.Fecha",
        "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
        "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
        "ProvVencimientos.NFactura)WHERE ProvVencimientos.FechaVto >= '20050301' And "
        "ProvVencimientos.FechaVto <= '20050331'",
        "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos "
        "INNER JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
        "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
        "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
        "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
        "ProvVencimientos.NConcepto = ProvConceptos.NConcepto WHERE "
        "(((ProvVencimientos_1.FechaVto)>='20050301' And "
        "(ProvVencimientos_1.FechaVto)<='20050331'))",
        "SELECT DISTINCT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, "
        "ProvConceptos.Descripcion FROM ProvConceptos INNER JOIN ProvPrevisionPagos ON "
        "ProvConceptos.NConcepto = ProvPrevisionPagos.NConcepto WHERE "
        "ProvPrevisionPagos.Fecha1Vto <= '20050331'  Order By ProvPrevisionPagos.Fecha1Vto",
        "SELECT CajaPagos.* From CajaPagos WHERE RTRIM(LTRIM(CajaPagos.Factura)) like 'A1' And "
        "CajaPagos.Tipo like 45 And CajaPagos.Año like '2005'",
        "SELECT CajaPagos.* From CajaPagos WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura "
        "= ''"));

INSTANTIATE_TEST_SUITE_P(
    Grabacion, PlanTest,
    testing::Values(
        "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
        "TempProvVencimientos.NConcepto like '5' And Trim(TempProvVencimientos.NFactura) like "
        "'A1' AND TempProvVencimientos.FechaVto like '20050315' And TempProvVencimientos.Año "
        "like '2005'",
        "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
        "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
        "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '20050301' And "
        "ProvVencimientos.FechaVto <= '20050331' Order By ProvFacturas.Fecha",
        "DELETE FROM ProvPrevisionPagos WHERE ProvPrevisionPagos.Fecha1Vto <= '20050331'",
        "SELECT CajaPagos.* FROM CajaPagos WHERE CajaPagos.idSucursal like '1' And "
        "CajaPagos.FechaHora like '15/03/2005 10:00:00' And CajaPagos.Tipo like 45"));

INSTANTIATE_TEST_SUITE_P(
    Pantallas, PlanTest,
    testing::Values(
        "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.Descripcion) like "
        "'LUZ'",
        "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.NConcepto) like '5'",
        "SELECT TempProvFacturas.* FROM TempProvFacturas WHERE "
        "RTRIM(LTRIM(TempProvFacturas.Factura)) like 'A1' And TempProvFacturas.NConcepto like "
        "'5' And TempProvFacturas.Año like '2005'",
        "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 45 AND "
        "TempCajaPagos.FechaHora like '15/03/2005 10:00:00' AND (TempCajaPagos.Factura Is Null "
        "OR TempCajaPagos.Factura = '') ORDER BY TempCajaPagos.FechaHora",
        "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto "
        "like '5'"));

}  // namespace
