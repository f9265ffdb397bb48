#include "datos/orden_filas.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <random>

#include "valores/texto.h"

namespace {

using services::Filas;
using services::Valor;
using testing::ElementsAre;

using Tabla = std::vector<std::vector<Valor>>;

Tabla Ordenada(const Tabla& tabla, const services::OrdenDeFilas& orden) {
  Filas filas(tabla.front().size());
  for (const auto& fila : tabla) {
    for (const Valor& valor : fila) filas.Anadir(valor);
  }
  services::Ordenar(filas, orden);
  Tabla ordenada(filas.Cuantas(), std::vector<Valor>(filas.Columnas()));
  for (std::size_t i = 0; i < ordenada.size(); ++i) {
    for (std::size_t j = 0; j < filas.Columnas(); ++j) ordenada[i][j] = filas.En(i, j);
  }
  return ordenada;
}

TEST(OrdenFilas, LosTextosVanALaEspanolaYElNuloDelante) {
  EXPECT_THAT(
      Ordenada({{"ñu"}, {"nube"}, {{}}, {"oca"}, {"NUEZ"}, {""}, {"álamo"}, {"alto"}}, {{0}}),
      ElementsAre(ElementsAre(Valor()), ElementsAre(""), ElementsAre("álamo"), ElementsAre("alto"),
                  ElementsAre("nube"), ElementsAre("NUEZ"), ElementsAre("ñu"), ElementsAre("oca")));
}

TEST(OrdenFilas, LasIgualesSeQuedanComoVinieron) {
  EXPECT_THAT(Ordenada({{"b", 1}, {"A", 2}, {"a", 3}, {"B", 4}, {"a", 5}}, {{0}}),
              ElementsAre(ElementsAre("A", 2), ElementsAre("a", 3), ElementsAre("a", 5),
                          ElementsAre("b", 1), ElementsAre("B", 4)));
}

TEST(OrdenFilas, LaPrimeraColumnaMandaYLasDemasDesempatan) {
  const Tabla tabla = {{"x", "2", 0}, {"y", "1", 1}, {"X", "1", 2}, {"y", {}, 3}};
  EXPECT_THAT(Ordenada(tabla, {{0, 1}}),
              ElementsAre(ElementsAre("X", "1", 2), ElementsAre("x", "2", 0),
                          ElementsAre("y", Valor(), 3), ElementsAre("y", "1", 1)));
  EXPECT_THAT(Ordenada(tabla, {{1, 0}}),
              ElementsAre(ElementsAre("y", Valor(), 3), ElementsAre("X", "1", 2),
                          ElementsAre("y", "1", 1), ElementsAre("x", "2", 0)));
}

TEST(OrdenFilas, UnaSolaODeNingunaNoCambia) {
  EXPECT_THAT(Ordenada({{"a"}}, {{0}}), ElementsAre(ElementsAre("a")));
  for (const services::OrdenDeFilas& orden :
       {services::OrdenDeFilas{{0}, {}}, services::OrdenDeFilas{{}, 1}}) {
    Filas ninguna(2);
    services::Ordenar(ninguna, orden);
    EXPECT_EQ(ninguna.Cuantas(), 0U);
  }
}

TEST(OrdenFilas, CadaUnaVaAlPuestoQueTrae) {
  EXPECT_THAT(Ordenada({{"c", 7}, {"b", 0}, {"d", 3}}, {{}, 1}),
              ElementsAre(ElementsAre("b", 0), ElementsAre("d", 3), ElementsAre("c", 7)));
}

TEST(OrdenFilas, LasIgualesVanPorSuPuestoYLasDelMismoComoVinieron) {
  EXPECT_THAT(Ordenada({{"b", 4, 1}, {"A", 3, 2}, {"a", 0, 3}, {"B", 1, 4}, {"b", 1, 5}}, {{0}, 1}),
              ElementsAre(ElementsAre("a", 0, 3), ElementsAre("A", 3, 2), ElementsAre("B", 1, 4),
                          ElementsAre("b", 1, 5), ElementsAre("b", 4, 1)));
}

/// Held against comparing whole rows.
TEST(OrdenFilas, AlAzarEsElDeCompararlas) {
  const std::array textos = {"a",  "A",     "á",    "ab",  "aB",   "ñ",    "n",  "nz",
                             "o",  "20050", "2005", " a",  "a ",   "\xC3", "Á",  "z",
                             "ZZ", "zé",    "zÉ",   "zea", "\xFF", "ç",    "ca", "cz"};
  std::mt19937 azar{11};
  for (int vez = 0; vez < 200; ++vez) {
    Tabla tabla(azar() % 60 + 1);
    for (std::size_t i = 0; i < tabla.size(); ++i) {
      for (int columna = 0; columna < 3; ++columna) {
        tabla[i].push_back(azar() % 8 == 0 ? Valor() : Valor(textos[azar() % textos.size()]));
      }
      tabla[i].emplace_back(static_cast<int>(i));
    }
    Tabla esperada = tabla;
    std::ranges::stable_sort(esperada, [](const auto& una, const auto& otra) {
      for (const std::size_t columna : {2U, 0U, 1U}) {
        const Valor& a = una[columna];
        const Valor& b = otra[columna];
        if (a.EsNulo() || b.EsNulo()) {
          if (a.EsNulo() != b.EsNulo()) return a.EsNulo();
          continue;
        }
        const int orden = services::CompararTexto(a.Texto(), b.Texto());
        if (orden != 0) return orden < 0;
      }
      return false;
    });
    ASSERT_EQ(Ordenada(tabla, {{2, 0, 1}}), esperada) << vez;
  }
}

}  // namespace
