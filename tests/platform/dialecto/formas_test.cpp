#include "dialecto/formas.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "dialecto/sentencias.h"

namespace {

using dialecto::Escrita;
using services::ModoApertura;

std::vector<dialecto::Token> Trocear(std::string_view sentencia) {
  std::vector<dialecto::Token> tokens;
  dialecto::Trocear(sentencia, tokens);
  return tokens;
}
std::string Forma(std::string_view sentencia) {
  return dialecto::Forma(sentencia, Trocear(sentencia));
}
bool EsDelSistema(std::string_view sentencia, ModoApertura modo = ModoApertura::Optimista,
                  const std::vector<std::string>& propias = {}) {
  return dialecto::Formas(propias).Tiene(Forma(sentencia), modo);
}

TEST(Formas, LosValoresNoCuentan) {
  EXPECT_EQ(Forma("DELETE FROM T WHERE A like 'x' And B = 12 And C >= #1/2/2005#"),
            Forma("DELETE FROM T WHERE A like 'y%;--' And B = -3 And C >= #3/4/2006 9:30:00#"));
  EXPECT_EQ(Forma("DELETE FROM T WHERE A like 'x' And B = 12"),
            "DELETE FROM T WHERE A like '' And B = 0 ");
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = 'x'"), Forma("SELECT T.* FROM T WHERE A = B"));
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = True"), Forma("SELECT T.* FROM T WHERE A = 'x'"));
}

TEST(Formas, DeUnaClaseNoSonDeOtra) {
  const std::set<std::string> formas = {Forma("SELECT T.* FROM T WHERE A = 5"),
                                        Forma("SELECT T.* FROM T WHERE A = '5'"),
                                        Forma("SELECT T.* FROM T WHERE A = #1/1/2005#")};
  EXPECT_EQ(formas.size(), 3U);
}

TEST(Formas, LoQueNoEsElValorSigueEnElla) {
  const std::string texto = Forma("SELECT T.* FROM T WHERE A = 'x'");
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = 'a''b'"), texto);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE A = ''''"), texto);
  const std::string numero = Forma("SELECT T.* FROM T WHERE A = 5");
  EXPECT_EQ(Forma("SELECT T.* FROM T WHERE A = -5"), numero);
  EXPECT_EQ(Forma("SELECT T.* FROM T WHERE A =  005 \n"), numero);
  for (const char* otro : {"- 5", "5.0", "5.", ".5", "1234567890123456", "(5)", "5;"}) {
    EXPECT_NE(Forma(std::string("SELECT T.* FROM T WHERE A = ") + otro), numero) << otro;
  }
}

TEST(Formas, LaManeraDeEscribirloCuenta) {
  const std::string una = Forma("SELECT T.* FROM T WHERE T.A like '' And T.B like ''");
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE T.A like '' and T.B like ''"), una);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE T.A like ''And T.B like ''"), una);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE T.B like '' And T.A like ''"), una);
  EXPECT_NE(Forma("SELECT T.* FROM T WHERE [T].A like '' And T.B like ''"), una);
}

TEST(Formas, CadaSentenciaEstaUnaVezEnCadaModo) {
  std::set<std::pair<std::string, ModoApertura>> formas;
  for (const auto& [modo, texto] : dialecto::Sentencias()) {
    EXPECT_TRUE(formas.emplace(Forma(texto), modo).second) << texto;
    EXPECT_TRUE(EsDelSistema(texto, modo)) << texto;
  }
}

TEST(Formas, LasQueNoTienenCondicionesTambienSonLasQueSon) {
  EXPECT_TRUE(EsDelSistema("SELECT ProvFacturas.* FROM ProvFacturas"));
  EXPECT_TRUE(EsDelSistema("DELETE TempTesvara.* FROM TempTesvara"));
  EXPECT_FALSE(EsDelSistema("DELETE FROM ProvFacturas"));
  EXPECT_FALSE(EsDelSistema("DELETE ProvFacturas.* FROM ProvFacturas"));
  EXPECT_FALSE(EsDelSistema("SELECT ProvFacturas.* FROM ProvFacturas", ModoApertura::Lectura));
  EXPECT_FALSE(EsDelSistema("SELECT TempTesvara.* FROM TempTesvara Order by TempTesvara.Año"));
}

TEST(Formas, QuienAbreLaConexionTieneLasSuyas) {
  const std::vector<std::string> propias = {"SELECT Textos.* FROM Textos WHERE Textos.Clave = ''"};
  const std::string una = "SELECT Textos.* FROM Textos WHERE Textos.Clave = 'x'";
  EXPECT_FALSE(EsDelSistema(una));
  EXPECT_TRUE(EsDelSistema(una, ModoApertura::Lectura, propias));
  EXPECT_TRUE(EsDelSistema(una, ModoApertura::Pesimista, propias));
  EXPECT_FALSE(EsDelSistema(una + " Or Clave = ''", ModoApertura::Lectura, propias));
}

/// The pieces of a statement between its values. The blanks around a number may be the value's.
std::vector<std::string> Piezas(std::string_view sentencia) {
  std::string forma = Forma(sentencia);
  for (const auto& [valor, partido] :
       {std::pair{"''", "'\n'"}, std::pair{"##", "#\n#"}, std::pair{" 0 ", "\n"}}) {
    for (auto en = forma.find(valor); en != std::string::npos; en = forma.find(valor)) {
      forma.replace(en, std::strlen(valor), partido);
    }
  }
  std::vector<std::string> piezas{""};
  for (const char c : forma) {
    if (c == '\n') {
      piezas.emplace_back();
    } else {
      piezas.back() += c;
    }
  }
  return piezas;
}

/// Whether the first statement can become the second by what is written in place of its values.
bool PuedeLlegarASer(std::string_view una, std::string_view otra) {
  const std::vector<std::string> piezas = Piezas(una);
  const std::string forma = Forma(otra);
  if (piezas.size() == 1) return forma == piezas.front();
  if (!forma.starts_with(piezas.front()) || !forma.ends_with(piezas.back())) return false;
  std::size_t desde = piezas.front().size();
  for (std::size_t i = 1; i + 1 < piezas.size(); ++i) {
    desde = forma.find(piezas[i], desde);
    if (desde == std::string::npos) return false;
    desde += piezas[i].size();
  }
  return desde + piezas.back().size() <= forma.size();
}

TEST(Formas, LasPiezasDeUnaSentenciaSonLoQueNoEsValor) {
  EXPECT_EQ(Piezas("A = 'x' And B = 5 And C = #1/1/2005#"),
            (std::vector<std::string>{"A = '", "' And B =", "And C = #", "#"}));
  EXPECT_TRUE(PuedeLlegarASer("A = 'x' And B = 5", "A = 'x' And C = 'y' And B = 5"));
  EXPECT_TRUE(PuedeLlegarASer("A = 'x' And B = 5", "A = 'x' And B = 5 And C = 'y'"));
  EXPECT_FALSE(PuedeLlegarASer("A = 'x' And B = 5", "A = 'x' and C = 'y' and B = 5"));
}

// Else a value could bring along the condition that makes the difference.
TEST(Formas, NingunaPuedeLlegarASerOtra) {
  for (const Escrita& una : dialecto::Sentencias()) {
    for (const Escrita& otra : dialecto::Sentencias()) {
      if (una.Texto == otra.Texto || una.Modo != otra.Modo) continue;
      EXPECT_FALSE(PuedeLlegarASer(una.Texto, otra.Texto)) << una.Texto << "\n" << otra.Texto;
    }
  }
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

INSTANTIATE_TEST_SUITE_P(
    Valores, UnValorConComilla,
    testing::Values("x' or ProvVencimientos.Año like '2005", "x' or Año like '2005",
                    "x' Or Importe > 0 Or NConcepto like '", "' or NConcepto <> '",
                    "x' or not NConcepto like 'x", "x' or NConcepto like NConcepto or Año like '",
                    "x' Or Pagado Is Null Or NConcepto like 'x",
                    "x' and ProvVencimientos.NConcepto like 'x", "a''b", "''"));

TEST(Formas, UnConceptoSinComillasTampoco) {
  const std::string caja =
      "SELECT TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos WHERE "
      "Trim(TempCajaPagos.Factura) like 'F1' AND TempCajaPagos.Tipo like ";
  const std::string resto = " AND TempCajaPagos.Año like '2005'";
  for (const char* valor : {"400", "-3", " 400 ", "0400"}) {
    EXPECT_TRUE(EsDelSistema(caja + valor + resto)) << valor;
  }
  for (const char* valor : {"Tipo", "4 or Tipo > 0", "'5'", "#1/1/2005#", "- 3", "4.0", "True",
                            "4 AND TempCajaPagos.Tipo like 4"}) {
    EXPECT_FALSE(EsDelSistema(caja + valor + resto)) << valor;
  }
}

}  // namespace
