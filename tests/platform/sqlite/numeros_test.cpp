#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// Row numbers gathered in one value, and the table that such a value is.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kNumeros = "\"numeros de filas\"";
constexpr const char* kEnOrden = "\"numeros de filas en orden\"";

class Numeros : public testing::Test {
 protected:
  using Leidos = std::vector<std::pair<std::string, int>>;

  Leidos Leer(const std::string& sql) {
    const auto filas = conexion->Consultar(sql).Filas;
    Leidos leidos;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
      leidos.emplace_back(filas.En(i, 0).Texto(), static_cast<int>(filas.En(i, 1).Numero()));
    }
    return leidos;
  }
  Leidos Reunir(const std::string& tabla, const std::string& valores) {
    return Leer("SELECT numero, orden FROM " + tabla + "((SELECT numerar(column1) FROM (VALUES " +
                valores + ")))");
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion =
      sqlite::AbrirConexion(carpeta.Fichero("datos.db"), {.Crear = true});
};

TEST_F(Numeros, CadaUnoUnaVezDondeVinoPorPrimeraVez) {
  EXPECT_THAT(Reunir(kNumeros, "(7), (3), (7), (-2), (3), (7)"),
              ElementsAre(Pair("7", 0), Pair("3", 1), Pair("-2", 2)));
}

TEST_F(Numeros, EnOrdenVanDelMenorAlMayorYDicenDondeVinieron) {
  EXPECT_THAT(Reunir(kEnOrden, "(7), (3), (7), (-2), (3), (7)"),
              ElementsAre(Pair("-2", 2), Pair("3", 1), Pair("7", 0)));
}

TEST_F(Numeros, CabenLosMayoresQueTieneUnaFila) {
  EXPECT_EQ(conexion
                ->Consultar("SELECT min(numero) = -9223372036854775807 - 1 AND "
                            "max(numero) = 9223372036854775807 FROM \"numeros de filas\"((SELECT "
                            "numerar(column1) FROM "
                            "(VALUES (9223372036854775807), (-9223372036854775807 - 1), (0))))")
                .Filas.En(0, 0)
                .Numero(),
            1);
}

TEST_F(Numeros, DeNingunaFilaNoHayNinguno) {
  for (const std::string tabla : {kNumeros, kEnOrden}) {
    EXPECT_THAT(
        Leer("SELECT numero, orden FROM " + tabla + "((SELECT numerar(rowid) FROM sqlite_schema))"),
        IsEmpty());
  }
}

TEST_F(Numeros, DeLoQueNoEsUnValorSuyoNoSaleNada) {
  for (const std::string valor : {"NULL", "''", "x''", "x'00'", "7"}) {
    EXPECT_THAT(Leer("SELECT numero, orden FROM \"numeros de filas\"(" + valor + ")"), IsEmpty())
        << valor;
  }
}

TEST_F(Numeros, LoQueNoEsNumeroDeFilaNoSeReune) {
  for (const std::string valor : {"'r1'", "NULL", "1.5", "x'01'"}) {
    EXPECT_THROW(Leer("SELECT numerar(column1), 0 FROM (VALUES (1), (" + valor + "))"),
                 services::ErrorEjecucion)
        << valor;
  }
}

TEST_F(Numeros, SinValorNoSeRecorren) {
  EXPECT_THROW(Leer("SELECT numero, orden FROM \"numeros de filas\""), services::ErrorEjecucion);
}

TEST_F(Numeros, LaTablaSeRecorreDeNuevoPorCadaFilaQueLaPide) {
  EXPECT_THAT(Leer("SELECT numero, orden FROM (VALUES (1), (2)) CROSS JOIN "
                   "\"numeros de filas\"((SELECT numerar(column1) FROM (VALUES (5), (4))))"),
              ElementsAre(Pair("5", 0), Pair("4", 1), Pair("5", 0), Pair("4", 1)));
}

}  // namespace
