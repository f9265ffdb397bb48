#include "valores/valor.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/errores.h"

using apoyo::NumeroDeError;
using services::FechaHora;
using services::HacerFecha;
using services::Igual;
using services::Nulo;
using services::Valor;

namespace {

TEST(Valor, TextoDeCadaClase) {
  const std::vector<std::pair<Valor, std::string>> casos = {
      {Nulo{}, ""},
      {true, "Verdadero"},
      {false, "Falso"},
      {-25, "-25"},
      {1234.5, "1234,5"},
      {"ñu", "ñu"},
      {HacerFecha(2005, 3, 15), "15/03/2005"},
      {HacerFecha(2005, 3, 15, 9, 5), "15/03/2005 9:05:00"},
      {FechaHora{}, "0:00:00"}};
  for (const auto& [valor, esperado] : casos) EXPECT_EQ(valor.Texto(), esperado);
}

TEST(Valor, NumeroDeCadaClase) {
  const std::vector<std::pair<Valor, double>> casos = {{true, -1},
                                                       {false, 0},
                                                       {7, 7},
                                                       {0.25, 0.25},
                                                       {"1.234,5", 1234.5},
                                                       {" -2 ", -2},
                                                       {FechaHora{2, 43200}, 2.5}};
  for (const auto& [valor, esperado] : casos) EXPECT_EQ(valor.Numero(), esperado);
}

TEST(Valor, NuloNoEsNumeroNiLogico) {
  const Valor nulo;
  EXPECT_TRUE(nulo.EsNulo());
  EXPECT_EQ(NumeroDeError([&] { return nulo.Numero(); }), 94);
  EXPECT_EQ(NumeroDeError([&] { return nulo.Logico(); }), 94);
}

TEST(Valor, TextoSinNumeroEsErrorDeTipos) {
  for (const char* texto : {"", "abc", "15/03/2005"}) {
    EXPECT_EQ(NumeroDeError([&] { return Valor(texto).Numero(); }), 13) << texto;
    EXPECT_EQ(NumeroDeError([&] { return Valor(texto).Logico(); }), 13) << texto;
  }
  EXPECT_EQ(NumeroDeError([] { return Valor("Verdadero").Numero(); }), 13);
}

TEST(Valor, LogicoDeCadaClase) {
  for (const Valor& valor : {Valor(true), Valor(-1), Valor(0.1), Valor("2"), Valor("VERDADERO")}) {
    EXPECT_TRUE(valor.Logico()) << valor.Texto();
  }
  for (const Valor& valor : {Valor(false), Valor(0), Valor(0.0), Valor("0,00"), Valor("falso")}) {
    EXPECT_FALSE(valor.Logico()) << valor.Texto();
  }
}

TEST(Valor, VistasDeLoQueGuarda) {
  const Valor texto("a");
  ASSERT_NE(texto.Si<std::string>(), nullptr);
  EXPECT_EQ(*texto.Si<std::string>(), "a");
  EXPECT_EQ(texto.Si<double>(), nullptr);
  EXPECT_TRUE(texto.EsTexto());
  EXPECT_FALSE(texto.EsNulo());
}

TEST(Valor, IdentidadDistingueClasesYMayusculas) {
  EXPECT_EQ(Valor(), Valor(Nulo{}));
  EXPECT_NE(Valor(1), Valor(1.0));
  EXPECT_NE(Valor("a"), Valor("A"));
  EXPECT_NE(Valor(""), Valor());
}

TEST(Valor, NuloNoEsIgualANada) {
  for (const Valor& otro : {Valor(), Valor(0), Valor(""), Valor(false)}) {
    EXPECT_EQ(Igual(Nulo{}, otro), std::nullopt);
    EXPECT_EQ(Igual(otro, Nulo{}), std::nullopt);
  }
}

TEST(Valor, IgualComoLaPlataforma) {
  struct Caso {
    Valor a;
    Valor b;
    bool iguales;
  };
  const FechaHora dia = HacerFecha(2005, 3, 15);
  const std::vector<Caso> casos = {{"Año", "AÑO", true},
                                   {"a", "á", false},
                                   {"5", "5,0", false},
                                   {5, "5,00", true},
                                   {1234.5, "1.234,5", true},
                                   {5, "6", false},
                                   {5, "cinco", false},
                                   {0, "", false},
                                   {5, 5.0, true},
                                   {true, -1, true},
                                   {true, 1, false},
                                   {true, "-1", true},
                                   {true, "verdadero", true},
                                   {false, 0.0, true},
                                   {dia, "15/03/2005", true},
                                   {dia, "16/03/2005", false},
                                   {dia, dia, true},
                                   {dia, 38426, true},
                                   {dia, HacerFecha(2005, 3, 15, 0, 0, 1), false}};
  for (const Caso& caso : casos) {
    EXPECT_EQ(Igual(caso.a, caso.b), caso.iguales) << caso.a.Texto() << " | " << caso.b.Texto();
    EXPECT_EQ(Igual(caso.b, caso.a), caso.iguales) << caso.b.Texto() << " | " << caso.a.Texto();
  }
}

}  // namespace
