#include "valores/texto.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "apoyo/textos_comparados.h"

using services::CompararTexto;
using services::Izquierda;
using services::Longitud;
using services::MismoTexto;
using services::Trim;

namespace {

int Signo(int n) {
  return n < 0 ? -1 : static_cast<int>(n > 0);
}

/// Texts of up to two pieces, and some longer ones: prefixes of each other, letters of every kind,
/// and bytes that are no UTF-8.
std::vector<std::string> TextosVariados() {
  const std::vector<std::string> piezas = {"",  "a", "A", "á",  "n",    "ñ",    "Ñ",       "ü",
                                           "ç", "z", "7", "\"", "\xC3", "\xFF", "\xE2\x82"};
  std::vector<std::string> textos;
  for (std::size_t i = 0; i < piezas.size(); ++i) {
    for (std::size_t j = i == 0 ? 0 : 1; j < piezas.size(); ++j) {
      textos.push_back(piezas[i] + piezas[j]);
    }
  }
  for (const char* largo :
       {"año", "ano", "5 €", "AÑO 2005", "anos", "pingüino", "pinguino", "Ÿ", "ÿ"}) {
    textos.emplace_back(largo);
  }
  return textos;
}

std::vector<std::vector<int>> Comparaciones(const std::vector<std::string>& textos) {
  std::vector<std::vector<int>> signos;
  for (const std::string& a : textos) {
    signos.emplace_back();
    for (const std::string& b : textos) signos.back().push_back(Signo(CompararTexto(a, b)));
  }
  return signos;
}

TEST(Texto, LaLongitudCuentaCaracteres) {
  EXPECT_EQ(Longitud(""), 0U);
  EXPECT_EQ(Longitud("año"), 3U);
  EXPECT_EQ(Longitud("5 €"), 3U);
  EXPECT_EQ(Longitud("\xF0\x9F\x98\x80!"), 2U);
}

TEST(Texto, CadaByteQueNoEsUtf8CuentaUno) {
  EXPECT_EQ(Longitud("\xFF\xC3"), 2U);
  EXPECT_EQ(Longitud("\xC3("), 2U);
  EXPECT_EQ(Longitud("\xC0\x80"), 2U);
  EXPECT_EQ(Longitud("\xE0\x80\x80"), 3U);
  EXPECT_EQ(Longitud("\xED\xA0\x80"), 3U);
  EXPECT_EQ(Longitud("\xF4\x90\x80\x80"), 4U);
  EXPECT_EQ(Longitud("\xE2\x82"), 2U);
}

TEST(Texto, IzquierdaCortaPorCaracteres) {
  EXPECT_EQ(Izquierda("ñandú", 1), "ñ");
  EXPECT_EQ(Izquierda("ñandú", 5), "ñandú");
  EXPECT_EQ(Izquierda("ñandú", 9), "ñandú");
  EXPECT_EQ(Izquierda("ñandú", 0), "");
  EXPECT_EQ(Izquierda("a\xFF"
                      "b",
                      2),
            "a\xFF");
}

TEST(Texto, TrimQuitaSoloLosBlancosDeLosLados) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\xC2\xA0"), "\ta\xC2\xA0");
}

TEST(Texto, OrdenDeLasLetras) {
  const std::vector<std::string>& en_orden = apoyo::TextosEnOrden();
  for (std::size_t i = 0; i < en_orden.size(); ++i) {
    for (std::size_t j = 0; j < en_orden.size(); ++j) {
      const int esperado = i < j ? -1 : static_cast<int>(i > j);
      EXPECT_EQ(Signo(CompararTexto(en_orden[i], en_orden[j])), esperado)
          << en_orden[i] << " | " << en_orden[j];
    }
  }
}

TEST(Texto, LasMayusculasNoCuentan) {
  for (const auto& clase : apoyo::TextosIguales()) {
    for (const std::string& a : clase) {
      for (const std::string& b : clase) EXPECT_TRUE(MismoTexto(a, b)) << a << " | " << b;
    }
  }
}

TEST(Texto, LosAcentosYLosSignosSiCuentan) {
  for (const auto& [uno, otro] : apoyo::TextosDistintos()) {
    EXPECT_NE(CompararTexto(uno, otro), 0) << uno << " | " << otro;
  }
}

TEST(Texto, LaLetraPesaMasQueElAcentoAnterior) {
  EXPECT_LT(CompararTexto("ácido a", "acido b"), 0);
  EXPECT_GT(CompararTexto("ácido", "acido"), 0);
  EXPECT_LT(CompararTexto("ácido", "acidos"), 0);
  EXPECT_LT(CompararTexto("acidó", "ácido"), 0);
}

TEST(Texto, LaComparacionEsAntisimetrica) {
  const std::vector<std::string> textos = TextosVariados();
  ASSERT_GE(textos.size(), 200U);
  const auto signos = Comparaciones(textos);
  for (std::size_t i = 0; i < textos.size(); ++i) {
    EXPECT_EQ(signos[i][i], 0);
    for (std::size_t j = 0; j < i; ++j) EXPECT_EQ(signos[i][j], -signos[j][i]);
  }
}

/// Behind a letter of another case that isn't ASCII each character is decoded.
TEST(Texto, LoQueEmpiezaIgualYLoAsciiSeComparaComoLoDemas) {
  const std::vector<std::string> piezas = {"a",    "A", "z",        "Z", "á",  "Á",
                                           "ñ",    "N", "7",        "0", " ",  "\xC3",
                                           "\xA1", "€", "\xE2\x82", "_", "F-0"};
  std::mt19937 azar(2005);
  const auto uno = [&] {
    std::string texto;
    for (auto largo = azar() % 12; largo > 0; --largo) texto += piezas[azar() % piezas.size()];
    return texto;
  };
  for (int i = 0; i < 100'000; ++i) {
    const std::string principio = uno();
    const std::string a = principio + uno();
    const std::string b = principio + uno();
    ASSERT_EQ(Signo(CompararTexto(a, b)), Signo(CompararTexto("Á" + a, "á" + b))) << a << '|' << b;
  }
}

TEST(Texto, LaComparacionEsTransitiva) {
  const auto signos = Comparaciones(TextosVariados());
  const std::size_t n = signos.size();
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < n; ++j) {
      if (signos[i][j] > 0) continue;
      for (std::size_t k = 0; k < n; ++k) {
        if (signos[j][k] > 0) continue;
        ASSERT_EQ(signos[i][k], std::min(signos[i][j], signos[j][k])) << i << ' ' << j << ' ' << k;
      }
    }
  }
}

}  // namespace
