#include "datos/conversion.h"

#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "services/datos/conexion_falsa.h"

namespace {

using services::Columna;
using services::Convertir;
using services::Nulo;
using services::TipoColumna;
using services::Valor;

struct Caso {
  TipoColumna tipo;
  Valor dado;
  Valor guardado;
};

class ConversionTest : public testing::TestWithParam<Caso> {};

TEST_P(ConversionTest, DaElValorDeLaColumna) {
  const auto& [tipo, dado, guardado] = GetParam();
  Valor lugar;
  EXPECT_EQ(Convertir(dado, Columna{"C", tipo, 20, true}, lugar), guardado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, ConversionTest,
    testing::Values(
        Caso{TipoColumna::Texto, "Año", "Año"},
        Caso{TipoColumna::Texto, "un texto más largo de lo que dice su columna",
             "un texto más largo de lo que dice su columna"},
        Caso{TipoColumna::Texto, "", ""}, Caso{TipoColumna::Texto, 12.5, "12,5"},
        Caso{TipoColumna::Texto, 7, "7"}, Caso{TipoColumna::Texto, true, "Verdadero"},
        Caso{TipoColumna::Texto, Nulo{}, Nulo{}},
        Caso{TipoColumna::Texto, services::HacerFecha(2005, 3, 5, 9, 5, 0), "05/03/2005 9:05:00"},
        Caso{TipoColumna::Entero, "1.200", 1200}, Caso{TipoColumna::Entero, "12,00", 12},
        Caso{TipoColumna::Entero, 3.0, 3}, Caso{TipoColumna::Entero, 15.5, 15.5},
        Caso{TipoColumna::Entero, 3e9, 3e9}, Caso{TipoColumna::Entero, true, -1},
        Caso{TipoColumna::Entero, "", Nulo{}}, Caso{TipoColumna::Entero, "2147483647", 2147483647},
        Caso{TipoColumna::Moneda, "1.234,50", 1234.5}, Caso{TipoColumna::Moneda, "", Nulo{}},
        Caso{TipoColumna::Moneda, "86,217", 86.22}, Caso{TipoColumna::Moneda, "-0,005", -0.01},
        Caso{TipoColumna::Moneda, "100.000.000.000.000,25", 100000000000000.25},
        Caso{TipoColumna::Numero, "86,217", 86.217}, Caso{TipoColumna::Moneda, 1.00512, 1.00512},
        Caso{TipoColumna::Moneda, 7, 7.0},
        Caso{TipoColumna::Moneda, "9999999999999,99", 9999999999999.99},
        Caso{TipoColumna::Moneda, 1e13, 1e13}, Caso{TipoColumna::Moneda, "-1e13", -1e13},
        Caso{TipoColumna::Numero, "1e3", 1000.0}, Caso{TipoColumna::Numero, 1e20, 1e20},
        Caso{TipoColumna::Logico, "verdadero", true}, Caso{TipoColumna::Logico, "Falso", false},
        Caso{TipoColumna::Logico, 2.5, true}, Caso{TipoColumna::Logico, 0, false},
        Caso{TipoColumna::Logico, "0", false}, Caso{TipoColumna::Logico, "", Nulo{}},
        Caso{TipoColumna::FechaHora, "5/3/2005 9:05", services::HacerFecha(2005, 3, 5, 9, 5, 0)},
        Caso{TipoColumna::FechaHora, "", Nulo{}},
        Caso{TipoColumna::FechaHora, services::HacerFecha(2005, 3, 5),
             services::HacerFecha(2005, 3, 5)}));

class ConversionRechazadaTest : public testing::TestWithParam<Caso> {};

TEST_P(ConversionRechazadaTest, NoCabe) {
  const Columna columna{"C", GetParam().tipo, 5, false};
  Valor lugar;
  EXPECT_EQ(apoyo::NumeroDeError([&] { (void)Convertir(GetParam().dado, columna, lugar); }),
            services::error::RepetidoONoCabe);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, ConversionRechazadaTest,
    testing::Values(Caso{TipoColumna::Texto, Nulo{}, {}}, Caso{TipoColumna::Entero, "", {}},
                    Caso{TipoColumna::Entero, "1,5", {}},
                    Caso{TipoColumna::Entero, "2147483648", {}},
                    Caso{TipoColumna::Entero, "uno", {}}, Caso{TipoColumna::Moneda, "1,2,3", {}},
                    Caso{TipoColumna::Moneda, services::HacerFecha(2005, 3, 5), {}},
                    Caso{TipoColumna::Moneda, Nulo{}, {}}, Caso{TipoColumna::Logico, "quizá", {}},
                    Caso{TipoColumna::FechaHora, "31/02/2005", {}},
                    Caso{TipoColumna::FechaHora, 38416.0, {}}));

TEST(Conversion, UnTextoNoSeCopia) {
  Valor lugar;
  const Valor largo(std::string(100'000, 'x'));
  EXPECT_EQ(&Convertir(largo, Columna{"C"}, lugar), &largo);
}

}  // namespace
