#include "dialecto/formas.h"

#include <gtest/gtest.h>

#include <set>

#include "dialecto/sentencias.h"

namespace {

std::vector<dialecto::Token> Trocear(std::string_view sentencia) {
  std::vector<dialecto::Token> tokens;
  dialecto::Trocear(sentencia, tokens);
  return tokens;
}
std::string Forma(std::string_view sentencia) {
  return dialecto::Forma(Trocear(sentencia));
}
bool EsDelSistema(std::string_view sentencia) {
  return dialecto::EsDelSistema(Trocear(sentencia));
}

TEST(Formas, LosValoresNoCuentan) {
  EXPECT_EQ(
      Forma("DELETE FROM T WHERE A like 'x' And B = 12 And C >= #1/2/2005#"),
      Forma("DELETE FROM T WHERE A like 'O''Brien' And B = -3.5 And C >= #3/4/2006 9:30:00#"));
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = 'x'"), Forma("SELECT T.* FROM T WHERE A = B"));
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = True"), Forma("SELECT T.* FROM T WHERE A = 'x'"));
}

TEST(Formas, NiLaManeraDeEscribirlo) {
  const std::string una =
      Forma("SELECT T.* FROM T WHERE RTRIM(LTRIM(T.A)) like '' And T.B like ''");
  EXPECT_EQ(Forma("select t.*  From T Where ltrim(Trim([T].[A])) Like 'x'and T.B like 'y'"), una);
  EXPECT_EQ(Forma("SELECT T.* FROM T WHERE T.B like '' And Trim(T.A) like ''"), una);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE T.A like '' And T.B like ''"), una);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE LTRIM(T.A) like '' And T.B like ''"), una);
}

TEST(Formas, LoQueVaUnidoPorOrNoCambiaDeSitio) {
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = '' And B = '' Or C = ''"),
            Forma("SELECT T.* FROM T WHERE B = '' Or C = '' And A = ''"));
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE (A = '' Or B = '') And C = ''"),
            Forma("SELECT T.* FROM T WHERE A = '' Or B = '' And C = ''"));
}

TEST(Formas, CadaSentenciaEstaUnaVez) {
  std::set<std::string> formas;
  for (const std::string_view sentencia : dialecto::Sentencias()) {
    EXPECT_TRUE(formas.insert(Forma(sentencia)).second) << sentencia;
    EXPECT_TRUE(EsDelSistema(sentencia)) << sentencia;
  }
}

TEST(Formas, SinCondicionesNoHayValorQueLaCambie) {
  EXPECT_TRUE(EsDelSistema("SELECT ProvFacturas.* FROM ProvFacturas"));
  EXPECT_TRUE(EsDelSistema("DELETE TempTesvara.* FROM TempTesvara"));
  EXPECT_TRUE(EsDelSistema("SELECT T.* FROM T Order by T.A, T.B"));
  EXPECT_FALSE(EsDelSistema("SELECT T.* FROM T Order by '1'='1'"));
}

class UnValorConComilla : public testing::TestWithParam<const char*> {};

// Each of them is understood as a statement, and would find or delete more than it should.
TEST_P(UnValorConComilla, NoHaceOtraSentencia) {
  const std::string valor = GetParam();
  const std::string borrado =
      "DELETE From ProvVencimientos WHERE ProvVencimientos.NConcepto like '";
  const std::string anio = "' and ProvVencimientos.Año like '";
  const std::string factura = "' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like '";
  EXPECT_TRUE(EsDelSistema(borrado + "400" + anio + "2005" + factura + "F1'"));
  EXPECT_FALSE(EsDelSistema(borrado + valor + anio + "2005" + factura + "F1'"));
  EXPECT_FALSE(EsDelSistema(borrado + "400" + anio + valor + factura + "F1'"));
  EXPECT_FALSE(EsDelSistema(borrado + "400" + anio + "2005" + factura + valor + "'"));
  EXPECT_FALSE(EsDelSistema(
      "DELETE FROM ProvPrevisionPagos WHERE ProvPrevisionPagos.Fecha1Vto <= '" + valor + "'"));
}

INSTANTIATE_TEST_SUITE_P(Valores, UnValorConComilla,
                         testing::Values("x' or ProvVencimientos.Año like '2005",
                                         "x' or Año like '2005",
                                         "x' Or Importe > 0 Or NConcepto like '",
                                         "' or NConcepto <> '", "x' or not NConcepto like 'x",
                                         "x' or NConcepto like NConcepto or Año like '",
                                         "x' Or Pagado Is Null Or NConcepto like 'x",
                                         "x' and ProvVencimientos.NConcepto like 'x"));

TEST(Formas, UnConceptoSinComillasTampoco) {
  const std::string caja =
      "SELECT TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos WHERE "
      "Trim(TempCajaPagos.Factura) like 'F1' AND TempCajaPagos.Tipo like ";
  EXPECT_TRUE(EsDelSistema(caja + "400 AND TempCajaPagos.Año like '2005'"));
  EXPECT_TRUE(EsDelSistema(caja + "-3 AND TempCajaPagos.Año like '2005'"));
  EXPECT_FALSE(EsDelSistema(caja + "Tipo AND TempCajaPagos.Año like '2005'"));
  EXPECT_FALSE(EsDelSistema(caja + "4 or Tipo > 0 AND TempCajaPagos.Año like '2005'"));
}

}  // namespace
