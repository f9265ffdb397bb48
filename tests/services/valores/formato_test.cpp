#include "valores/formato.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "apoyo/errores.h"
#include "valores/error.h"
#include "valores/numero.h"

using services::HacerFecha;
using services::Importe;
using services::Mascara;
using services::Nulo;
using services::Valor;

namespace {

TEST(Mascara, LosEmpatesSeAlejanDeCero) {
  EXPECT_EQ(Mascara(0.005), "0,01");
  EXPECT_EQ(Mascara(1.005), "1,01");
  EXPECT_EQ(Mascara(2.675), "2,68");
  EXPECT_EQ(Mascara(-0.005), "-0,01");
  EXPECT_EQ(Mascara(474.15 * 0.1), "47,42");
}

TEST(Mascara, ImportesDeQuinceCifras) {
  EXPECT_EQ(Mascara(1234567890123.45), "1.234.567.890.123,45");
  EXPECT_EQ(Mascara(-9999999999999.99), "-9.999.999.999.999,99");
  EXPECT_EQ(Mascara(999999999999.995), "1.000.000.000.000,00");
  EXPECT_EQ(Mascara(999999999999999.0), "999.999.999.999.999,00");
}

TEST(Mascara, LoQueRedondeaACeroNoLlevaSigno) {
  EXPECT_EQ(Mascara(-0.004), "0,00");
  EXPECT_EQ(Mascara(-0.0), "0,00");
  EXPECT_EQ(Mascara(-0.4, "#,##0"), "0");
}

TEST(Mascara, LasAlmohadillasDeMasNoCambianNada) {
  for (const double valor : {0.0, 0.5, -12.0, 999.0, 1000.0, 12345.678, -1234567.891, 1e12}) {
    const std::string esperado = Mascara(valor, "#,###,##0.00");
    EXPECT_EQ(Mascara(valor, "##,###,##0.00"), esperado);
    EXPECT_EQ(Mascara(valor, "#,###,###0.00"), esperado);
    EXPECT_EQ(Mascara(valor, "#,##0.00"), esperado);
  }
  EXPECT_EQ(Mascara(0.5, "#,###,###0.00"), "0,50");
}

TEST(Mascara, CadaPlantilla) {
  const std::vector<std::tuple<double, std::string, std::string>> casos = {
      {1234.5, "0.00", "1234,50"},
      {-1234567.5, "0.00", "-1234567,50"},
      {1234.5, "#,##0", "1.235"},
      {999.5, "#,##0", "1.000"},
      {0, "#,##0", "0"},
      {-1000, "#,##0", "-1.000"},
      {0.5, "#.00", ",50"},
      {5, "00.00", "05,00"},
      {1234, "0,000,000", "0.001.234"},
      {1.5, "0.0#", "1,5"},
      {1.25, "0.0#", "1,25"},
      {2, "0.##", "2"},
      {-3, "0", "-3"},
      {1.005, "0.00", "1,01"}};
  for (const auto& [valor, formato, esperado] : casos) {
    EXPECT_EQ(Mascara(valor, formato), esperado) << formato;
  }
}

TEST(Mascara, ValoresDeCadaClase) {
  const std::vector<std::pair<Valor, std::string>> casos = {
      {Nulo{}, ""},
      {"", ""},
      {" ", " "},
      {"1234,5", "1.234,50"},
      {"1.234,565", "1.234,57"},
      {" 5 ", "5,00"},
      {"-5,005", "-5,01"},
      {"1,5,5", "1,5,5"},
      {"pendiente", "pendiente"},
      {true, "-1,00"},
      {false, "0,00"},
      {1234, "1.234,00"},
      {0.125, "0,13"},
      {HacerFecha(2005, 3, 15), "15/03/2005"}};
  for (const auto& [valor, esperado] : casos) EXPECT_EQ(Mascara(valor), esperado);
  EXPECT_EQ(Mascara(Valor("7,5"), services::mascara::Entero), "8");
}

TEST(Mascara, ElImporteMostradoSeVuelveALeer) {
  for (int centimos = 0; centimos <= 2'000'000; centimos += 37) {
    const double importe = centimos / 100.0;
    ASSERT_EQ(Importe(Mascara(importe)), importe);
    ASSERT_EQ(services::LeerNumero(Mascara(-importe)), -importe);
  }
}

TEST(Importe, LeeLosTextosDeLosCampos) {
  const std::vector<std::pair<std::string, double>> casos = {{"", 0},
                                                             {"0,00", 0},
                                                             {",5", 0.5},
                                                             {"5 ", 5},
                                                             {"1234,56", 1234.56},
                                                             {"1.234,56", 1234.56},
                                                             {"007", 7},
                                                             {"1.234.567,00", 1234567}};
  for (const auto& [texto, esperado] : casos) EXPECT_EQ(Importe(texto), esperado) << texto;
}

TEST(Importe, LoDemasEsErrorDeTipos) {
  for (const char* texto : {"-5,00", "+5", " 5", "1,5,5", "abc", "1.234,56 €"}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { return Importe(texto); }), 13) << texto;
  }
}

}  // namespace
