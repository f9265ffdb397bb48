#include <gtest/gtest.h>

#include <charconv>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "apoyo/errores.h"
#include "valores/fecha.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace {

using Fila = std::vector<std::string>;

void AnexarUtf8(std::string& texto, unsigned codigo) {
  if (codigo < 0x80) {
    texto += static_cast<char>(codigo);
  } else if (codigo < 0x800) {
    texto += static_cast<char>(0xC0 | codigo >> 6);
    texto += static_cast<char>(0x80 | (codigo & 0x3F));
  } else {
    texto += static_cast<char>(0xE0 | codigo >> 12);
    texto += static_cast<char>(0x80 | (codigo >> 6 & 0x3F));
    texto += static_cast<char>(0x80 | (codigo & 0x3F));
  }
}

std::string SinEscapes(const std::string& campo) {
  std::string texto;
  for (std::size_t i = 0; i < campo.size(); ++i) {
    if (campo[i] != '\\') {
      texto += campo[i];
      continue;
    }
    const char clase = campo.at(++i);
    if (clase == 'u') {
      AnexarUtf8(texto, static_cast<unsigned>(std::stoul(campo.substr(i + 1, 4), nullptr, 16)));
      i += 4;
    } else {
      texto += clase == 't' ? '\t' : '\n';
    }
  }
  return texto;
}

Fila Partir(const std::string& linea) {
  Fila campos(1);
  for (const char c : linea) {
    if (c == '\t') {
      campos.emplace_back();
    } else {
      campos.back() += c;
    }
  }
  return campos;
}

/// The rows under the header of a file of vectors, as they are written.
std::vector<Fila> LeerVectores(const std::string& nombre) {
  std::ifstream archivo(std::string(TESVARA_TESTS "/vectores/") + nombre);
  std::vector<Fila> filas;
  std::string linea;
  std::getline(archivo, linea);
  while (std::getline(archivo, linea)) filas.push_back(Partir(linea));
  return filas;
}

double ConPunto(const std::string& texto) {
  double valor = 0;
  const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  EXPECT_EQ(leido.ptr, texto.data() + texto.size()) << texto;
  return valor;
}

services::FechaHora DeIso(const std::string& texto) {
  const std::size_t mes = texto.find('-') + 1;
  const std::size_t dia = texto.find('-', mes) + 1;
  return services::HacerFecha(std::stoi(texto), std::stoi(texto.substr(mes)),
                              std::stoi(texto.substr(dia)));
}

/// The value that `leer` gives must be the one expected, or its error, where that is `!ERR n`.
template <class Leer>
void ComprobarLectura(Leer leer, const std::string& esperado) {
  constexpr std::string_view kError = "!ERR ";
  if (!esperado.starts_with(kError)) {
    EXPECT_EQ(leer(), ConPunto(esperado));
    return;
  }
  EXPECT_EQ(apoyo::NumeroDeError(leer), std::stoi(esperado.substr(kError.size())));
}

void Comprobar(const Fila& fila) {
  const std::string& clase = fila[0];
  const std::string entrada = SinEscapes(fila[1]);
  const std::string& esperado = fila[4];
  if (clase == "mascara") {
    EXPECT_EQ(services::Mascara(ConPunto(entrada), fila[2]), esperado);
  } else if (clase == "numero") {
    ComprobarLectura([&] { return services::Numero(entrada); }, esperado);
  } else if (clase == "val") {
    ComprobarLectura([&] { return services::Val(entrada); }, esperado);
  } else if (clase == "es_numero") {
    EXPECT_EQ(services::EsNumero(entrada), esperado == "True");
  } else if (clase == "sumar") {
    EXPECT_EQ(services::SumarFecha(entrada, std::stoll(fila[2]), DeIso(fila[3])), DeIso(esperado));
  } else {
    ADD_FAILURE() << "unknown kind";
  }
}

TEST(Vectores, ProductosBajoLaMascaraDeImportes) {
  const std::vector<Fila> filas = LeerVectores("productos.tsv");
  ASSERT_EQ(filas.size(), 2000U);
  for (const Fila& fila : filas) {
    ASSERT_EQ(fila.size(), 3U);
    EXPECT_EQ(services::Mascara(ConPunto(fila[0]) * ConPunto(fila[1]), "#,###,##0.00"), fila[2])
        << fila[0] << " * " << fila[1];
  }
}

TEST(Vectores, TextoYFechas) {
  std::map<std::string, int> cuantos;
  for (const Fila& fila : LeerVectores("texto_y_fechas.tsv")) {
    ASSERT_EQ(fila.size(), 5U);
    SCOPED_TRACE(fila[0] + " '" + fila[1] + "' " + fila[2] + ' ' + fila[3]);
    Comprobar(fila);
    ++cuantos[fila[0]];
  }
  const std::map<std::string, int> esperados = {
      {"mascara", 53}, {"numero", 56}, {"es_numero", 57}, {"val", 39}, {"sumar", 77}};
  EXPECT_EQ(cuantos, esperados);
}

}  // namespace
