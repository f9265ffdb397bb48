#include "valores/numero.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "apoyo/errores.h"

using apoyo::NumeroDeError;
using services::EnteroDeCifras;
using services::EsNumero;
using services::LeerNumero;
using services::Numero;
using services::Redondeado;
using services::TextoDeNumero;
using services::Val;

namespace {

TEST(Numero, LeeALaEspanola) {
  const std::vector<std::pair<std::string, double>> casos = {
      {"1234,56", 1234.56},
      {"1.234,56", 1234.56},
      {"1.234.567,8", 1234567.8},
      {"-1.234,56", -1234.56},
      {"  12,5\t", 12.5},
      {"5.", 5},
      {"1.,5", 1.5},
      {"1e+3", 1000},
      {"1,5E-2", 0.015},
      {"&HFFFF", -1},
      {"&h1FFFF", 131071},
      {"&HFFFFFFFF", -1},
      {"&H1FFFFFFFF", 8589934591.0},
      {"&o177777", -1},
      {" &H10 ", 16},
      {"999999999999999", 999999999999999.0}};
  for (const auto& [texto, esperado] : casos) EXPECT_EQ(LeerNumero(texto), esperado) << texto;
}

TEST(Numero, NoLeeLoQueNoEsNumero) {
  for (const char* texto : {"",
                            " ",
                            "-",
                            ",",
                            "1,5,5",
                            "-.5",
                            "1,234.5",
                            "1e5.3",
                            "1e5,3",
                            "1e",
                            "e5",
                            "- 5",
                            "5-",
                            "+-5",
                            "inf",
                            "-inf",
                            "nan",
                            "0x10",
                            "&H",
                            "&",
                            "&H1G",
                            "&O8",
                            "&X1",
                            "-&H10",
                            "&H1,5",
                            "1 2",
                            "\xC2\xA0"
                            "5",
                            "5€"}) {
    EXPECT_EQ(LeerNumero(texto), std::nullopt) << texto;
    EXPECT_FALSE(EsNumero(texto)) << texto;
    EXPECT_EQ(NumeroDeError([&] { return Numero(texto); }), 13) << texto;
  }
}

TEST(Numero, LoQueNoCabeEsDesbordamiento) {
  for (const std::string& texto :
       {std::string("1,8E308"), std::string("-1e400"), std::string("1e99999999999"),
        std::string(400, '9'), "0" + std::string(400, '9') + "e-5",
        std::string("&HFFFFFFFFFFFFFFFFF")}) {
    EXPECT_FALSE(EsNumero(texto)) << texto;
    EXPECT_EQ(NumeroDeError([&] { return Numero(texto); }), 6) << texto;
  }
}

TEST(Numero, LoDemasiadoPequenoEsCero) {
  for (const std::string& texto :
       {std::string("1e-400"), std::string("-1e-99999999999"), "0," + std::string(400, '0') + "1",
        "0," + std::string(400, '0') + "1e+5"}) {
    EXPECT_EQ(Numero(texto), 0) << texto;
  }
  EXPECT_EQ(Val("1e-400"), 0);
}

TEST(Numero, EnteroDeCifrasNoAdmiteOtraCosa) {
  EXPECT_EQ(EnteroDeCifras("007"), 7);
  EXPECT_EQ(EnteroDeCifras("2147483647"), 2147483647);
  for (const char* otro : {"", "-1", "+1", " 1", "1 ", "1,5", "2147483648", "x"}) {
    EXPECT_EQ(EnteroDeCifras(otro), std::nullopt) << otro;
  }
}

TEST(Numero, ValTomaElComienzo) {
  EXPECT_EQ(Val("12,50"), 12);
  EXPECT_EQ(Val("-1.5 pesos"), -1.5);
  EXPECT_EQ(Val("inf"), 0);
  EXPECT_EQ(Val("nan"), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("."), 0);
  EXPECT_EQ(Val("& H F F g"), 255);
  EXPECT_EQ(NumeroDeError([] { return Val("1e309 x"); }), 6);
}

TEST(Numero, TextoConQuinceCifras) {
  const std::vector<std::pair<double, std::string>> casos = {{0, "0"},
                                                             {-0.0, "0"},
                                                             {1234.5, "1234,5"},
                                                             {-0.5, "-0,5"},
                                                             {0.1 + 0.2, "0,3"},
                                                             {1.0 / 3, "0,333333333333333"},
                                                             {999999999999999.0, "999999999999999"},
                                                             {1e15, "1E+15"},
                                                             {0.0001, "0,0001"},
                                                             {1.5e-7, "1,5E-07"}};
  for (const auto& [valor, esperado] : casos) EXPECT_EQ(TextoDeNumero(valor), esperado);
}

TEST(Numero, ElTextoDeUnImporteSeVuelveALeer) {
  for (int centimos = -100'000; centimos <= 100'000; centimos += 7) {
    const double importe = centimos / 100.0;
    ASSERT_EQ(LeerNumero(TextoDeNumero(importe)), importe);
  }
}

TEST(Numero, RedondeaLosEmpatesLejosDeCero) {
  const std::vector<std::tuple<double, int, std::string>> casos = {
      {0.005, 2, "0.01"},         {1.005, 2, "1.01"},  {2.675, 2, "2.68"}, {-0.005, 2, "-0.01"},
      {474.15 * 0.1, 2, "47.42"}, {0.5, 0, "1"},       {-2.5, 0, "-3"},    {0.04, 1, "0.0"},
      {0.06, 1, "0.1"},           {9.995, 2, "10.00"}, {99.5, 0, "100"},   {1.23456, 4, "1.2346"},
      {12, 3, "12.000"}};
  for (const auto& [valor, decimales, esperado] : casos) {
    EXPECT_EQ(Redondeado(valor, decimales), esperado);
  }
}

TEST(Numero, LoRedondeadoACeroNoLlevaSigno) {
  EXPECT_EQ(Redondeado(-0.0, 2), "0.00");
  EXPECT_EQ(Redondeado(-0.004, 2), "0.00");
  EXPECT_EQ(Redondeado(-0.4, 0), "0");
  EXPECT_EQ(Redondeado(-1e-300, 2), "0.00");
}

/// Those that need no rounding are written by a way of their own; the next Doubles on both sides,
/// which go the long way, have the same fifteen figures.
TEST(Numero, LoQueNoHayQueRedondearSeEscribeIgual) {
  std::mt19937_64 azar{2005};
  for (int vez = 0; vez < 50'000; ++vez) {
    const int decimales = static_cast<int>(azar() % 5);
    const auto unidades = static_cast<std::int64_t>(azar() % 100'000'000'000ULL >> azar() % 37);
    const double importe = static_cast<double>(unidades) / std::pow(10.0, decimales);
    std::string cifras = std::to_string(unidades);
    if (cifras.size() <= static_cast<std::size_t>(decimales)) {
      cifras.insert(0, static_cast<std::size_t>(decimales) + 1 - cifras.size(), '0');
    }
    if (decimales > 0) cifras.insert(cifras.size() - static_cast<std::size_t>(decimales), 1, '.');
    const std::string negativas = (unidades == 0 ? "" : "-") + cifras;
    for (const double lejos : {importe, 0.0, 1e300}) {
      const double este = std::nextafter(importe, lejos);
      ASSERT_EQ(Redondeado(este, decimales), cifras);
      ASSERT_EQ(Redondeado(-este, decimales), negativas);
    }
  }
}

/// A text of few figures is read by a way of its own, and with its sign goes the long way.
TEST(Numero, UnasPocasCifrasSeLeenIgual) {
  constexpr std::string_view kSignos = "0123456789012345678901234567890123456789.,.,e -";
  std::mt19937_64 azar{7};
  int leidos = 0;
  for (int vez = 0; vez < 100'000; ++vez) {
    std::string texto(1, kSignos[azar() % 40]);
    for (auto faltan = azar() % 18; faltan > 0; --faltan) texto += kSignos[azar() % kSignos.size()];
    const auto leido = LeerNumero(texto);
    ASSERT_EQ(leido, LeerNumero("+" + texto)) << texto;
    leidos += leido ? 1 : 0;
  }
  EXPECT_GT(leidos, 20'000);
}

TEST(Numero, RedondeaLosExtremos) {
  EXPECT_EQ(Redondeado(999999999999.995, 2), "1000000000000.00");
  EXPECT_EQ(Redondeado(123456789012345.0, 2), "123456789012345.00");
  EXPECT_EQ(Redondeado(9999999999999999.0, 0), "10000000000000000");
  EXPECT_EQ(Redondeado(1e22, 0), "1" + std::string(22, '0'));
  EXPECT_EQ(Redondeado(std::numeric_limits<double>::max(), 1).size(), 311U);
}

TEST(Numero, SinNumeroNoHayTexto) {
  for (const double valor : {std::numeric_limits<double>::infinity(), std::nan("")}) {
    EXPECT_EQ(NumeroDeError([&] { return Redondeado(valor, 2); }), 6);
    EXPECT_EQ(NumeroDeError([&] { return TextoDeNumero(valor); }), 6);
  }
}

}  // namespace
