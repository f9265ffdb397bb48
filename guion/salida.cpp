#include "guion/salida.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "guion/gramatica.h"
#include "valores/texto.h"

namespace guion {
namespace {

/// Centimetres with two decimals.
std::string Cm(double x) {
  std::array<char, 32> texto{};
  std::snprintf(texto.data(), texto.size(), "%.2f", x);
  return texto.data() == std::string_view("-0.00") ? "0.00" : texto.data();
}

std::string Punto(double x, double y) {
  return Cm(x) + " " + Cm(y);
}

std::string LineaDeTexto(const services::Trazo& trazo) {
  return "texto " + Punto(trazo.X1, trazo.Y1) + " " + Entrecomillar(trazo.Texto) + " " +
         trazo.Letra.Nombre + " " + TextoPlano(trazo.Letra.Puntos) + " " +
         (trazo.Letra.Negrita ? "1 " : "0 ") + std::to_string(trazo.Color);
}

}  // namespace

std::string Entrecomillar(std::string_view texto) {
  std::string salida = "\"";
  for (const char c : texto) {
    if (c == '"' || c == '\\') salida += '\\';
    salida += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return salida + "\"";
}

std::string TextoPlano(double numero) {
  std::array<char, 32> redondo{};
  std::snprintf(redondo.data(), redondo.size(), "%.15g", numero);
  std::array<char, 400> texto{};
  const auto fin = std::to_chars(texto.data(), texto.data() + texto.size(),
                                 std::strtod(redondo.data(), nullptr), std::chars_format::fixed);
  const std::string_view plano(texto.data(), static_cast<std::size_t>(fin.ptr - texto.data()));
  return plano == "-0" ? "0" : std::string(plano);
}

std::string TextoPlano(const services::Valor& valor) {
  if (valor.EsNulo()) return "NULL";
  if (const bool* logico = valor.Si<bool>()) return *logico ? "1" : "0";
  if (const auto* entero = valor.Si<std::int32_t>()) return std::to_string(*entero);
  if (const double* numero = valor.Si<double>()) return TextoPlano(*numero);
  if (const auto* momento = valor.Si<services::FechaHora>()) return services::TextoIso(*momento);
  return *valor.Si<std::string>();
}

std::string LineaDeWidget(const std::string& nombre, const services::Widget& widget) {
  std::string linea = nombre;
  for (const NombreDeAspecto& aspecto : AspectosVisibles()) {
    const std::optional<services::Valor> valor = widget.Leer(aspecto.Aspecto);
    if (!valor) continue;
    const std::string texto = TextoPlano(*valor);
    linea += " " + std::string(aspecto.Nombre) + "=";
    linea += valor->EsTexto() ? Entrecomillar(texto) : texto;
  }
  return linea;
}

std::string LineaDeFila(const services::MSFlexGrid& rejilla, int fila) {
  std::string linea = std::to_string(fila) + ": ";
  for (int c = 0; c < rejilla.Cols(); ++c) {
    if (c > 0) linea += "|";
    linea += services::EnUnaLinea(rejilla.TextMatrix(fila, c));
    if (!rejilla.ImagenDe(fila, c).empty()) linea += "[x]";
  }
  return linea;
}

std::string LineaDeColores(const services::MSFlexGrid& rejilla, int fila) {
  std::string linea;
  for (int c = 0; c < rejilla.Cols(); ++c) {
    if (c > 0) linea += "|";
    linea += std::to_string(rejilla.FondoDe(fila, c)) + "/";
    linea += std::to_string(rejilla.ColorDe(fila, c));
  }
  return linea;
}

std::string LineaDeAviso(const headless::AvisoMostrado& aviso) {
  return "aviso " + Entrecomillar(aviso.Texto) + " " + std::to_string(aviso.Flags) + " " +
         Entrecomillar(aviso.Titulo) + " -> " + std::string(NombreDeRespuesta(aviso.Respuesta));
}

std::string LineaDeTrazo(int pagina, const services::Trazo& trazo) {
  using Que = services::Trazo::Clase;
  std::string donde = "p" + std::to_string(pagina) + " ";
  const std::string puntos = Punto(trazo.X1, trazo.Y1) + " " + Punto(trazo.X2, trazo.Y2) + " ";
  const std::string color = std::to_string(trazo.Color);
  switch (trazo.Que) {
    case Que::Texto:
      return donde + LineaDeTexto(trazo);
    case Que::Linea:
      return donde + "linea " + puntos + color;
    case Que::Caja:
      return donde + "caja " + puntos + color + (trazo.Llena ? " 1" : " 0");
    case Que::Imagen:
      return donde + "imagen " + Punto(trazo.X1, trazo.Y1) + " " + Entrecomillar(trazo.Texto);
  }
  return donde;
}

std::string FilaUnida(const std::vector<std::string>& valores) {
  std::string fila;
  for (std::size_t i = 0; i < valores.size(); ++i) fila += (i > 0 ? "|" : "") + valores[i];
  return fila;
}

std::string LineaDeError(std::int32_t numero, std::string_view descripcion) {
  return "error " + std::to_string(numero) + " " + Entrecomillar(descripcion);
}

std::string LineaDeOmision(const services::ErrorEjecucion& fallo) {
  return "omitido " + std::to_string(fallo.Numero()) + " " + Entrecomillar(fallo.Descripcion());
}

}  // namespace guion
