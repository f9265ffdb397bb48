#include "dialecto/literal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "dialecto/rechazo.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace dialecto {

using services::FechaHora;
using services::TipoColumna;
using services::Valor;

namespace {

bool EsEntero(double numero) {
  return numero == std::trunc(numero) && numero >= std::numeric_limits<std::int32_t>::min() &&
         numero <= std::numeric_limits<std::int32_t>::max();
}

Valor DeNumero(double numero) {
  if (EsEntero(numero)) return Valor(static_cast<std::int32_t>(numero));
  return Valor(numero);
}

Valor ComoNumero(Valor literal) {
  if (const auto* logico = literal.Si<bool>()) return Valor(*logico ? -1 : 0);
  if (const auto* texto = literal.Si<std::string>()) {
    const auto numero = services::LeerNumero(*texto);
    return numero ? DeNumero(*numero) : Valor();
  }
  return literal.Si<FechaHora>() ? Valor() : std::move(literal);
}

Valor ComoLogico(const Valor& literal) {
  if (const auto* texto = literal.Si<std::string>()) {
    if (services::MismoTexto(*texto, "Verdadero")) return Valor(true);
    if (services::MismoTexto(*texto, "Falso")) return Valor(false);
  }
  const Valor numero = ComoNumero(literal);
  return numero.EsNulo() ? Valor() : Valor(numero.Numero() != 0.0);
}

Valor ComoFecha(Valor literal) {
  if (const auto* texto = literal.Si<std::string>()) {
    const auto momento = services::LeerFecha(*texto);
    return momento ? Valor(*momento) : Valor();
  }
  return literal.Si<FechaHora>() ? std::move(literal) : Valor();
}

/// Reads whole numbers off a text, one after another.
class Lector {
 public:
  explicit Lector(std::string_view texto) : texto_(texto) {}

  /// At most so many.
  int Cifras(std::size_t cuantas = 2) {
    int valor = 0;
    if (texto_.starts_with('-')) Falla();  // -0 is read as 0
    const auto [fin, fallo] =
        std::from_chars(texto_.data(), texto_.data() + std::min(cuantas, texto_.size()), valor);
    if (fallo != std::errc()) Falla();
    texto_.remove_prefix(static_cast<std::size_t>(fin - texto_.data()));
    return valor;
  }
  bool Tomar(char signo) {
    if (texto_.empty() || texto_.front() != signo) return false;
    texto_.remove_prefix(1);
    return true;
  }
  void Exigir(char signo) {
    if (!Tomar(signo)) Falla();
  }
  [[nodiscard]] bool Fin() const { return texto_.empty(); }
  [[noreturn]] void Falla() const { Rechazar("una fecha que no existe", todo_); }

 private:
  std::string_view texto_;
  std::string_view todo_ = texto_;
};

Valor Leer(const Token& literal, bool negativo) {
  switch (literal.clase) {
    case ClaseToken::Texto:
      return LeerTexto(literal.texto);
    case ClaseToken::Fecha:
      return LeerFecha(literal.texto);
    case ClaseToken::Numero:
      return LeerNumero(literal.texto, negativo);
    default:
      return Valor(literal.palabra == Palabra::True);
  }
}

}  // namespace

Valor LeerTexto(std::string_view entreComillas) {
  if (entreComillas.find('\'') == std::string_view::npos) return Valor(entreComillas);
  std::string texto;
  for (std::size_t i = 0; i < entreComillas.size(); ++i) {
    texto += entreComillas[i];
    if (entreComillas[i] == '\'') ++i;
  }
  return Valor(std::move(texto));
}

Valor LeerNumero(std::string_view cifras, bool negativo) {
  double numero = 0;
  const auto [fin, fallo] = std::from_chars(cifras.data(), cifras.data() + cifras.size(), numero);
  if (fallo != std::errc() || fin != cifras.data() + cifras.size()) {
    Rechazar("un número que no se entiende", cifras);
  }
  return DeNumero(negativo ? -numero : numero);
}

Valor LeerFecha(std::string_view entreAlmohadillas) {
  Lector lector(services::Trim(entreAlmohadillas));
  const int mes = lector.Cifras();
  lector.Exigir('/');
  const int dia = lector.Cifras();
  lector.Exigir('/');
  const int anio = lector.Cifras(4);
  std::array<int, 3> hora{};
  if (!lector.Fin()) {
    lector.Exigir(' ');
    hora[0] = lector.Cifras();
    lector.Exigir(':');
    hora[1] = lector.Cifras();
    if (lector.Tomar(':')) hora[2] = lector.Cifras();
  }
  const bool existe = lector.Fin() && anio >= 100 && anio <= 9999 && mes >= 1 && mes <= 12 &&
                      dia >= 1 && dia <= services::DiasDelMes(anio, mes) && hora[0] < 24 &&
                      hora[1] < 60 && hora[2] < 60;
  if (!existe) lector.Falla();
  return Valor(services::HacerFecha(anio, mes, dia, hora[0], hora[1], hora[2]));
}

Valor Adaptado(Valor literal, TipoColumna tipo) {
  if (literal.EsNulo()) return literal;
  switch (tipo) {
    case TipoColumna::Texto:
      return literal.EsTexto() ? std::move(literal) : Valor(literal.Texto());
    case TipoColumna::Entero:
    case TipoColumna::Moneda:
    case TipoColumna::Numero:
      return ComoNumero(std::move(literal));
    case TipoColumna::Logico:
      return ComoLogico(literal);
    case TipoColumna::FechaHora:
      return ComoFecha(std::move(literal));
  }
  return literal;
}

bool EsLiteral(const Token& token) {
  switch (token.clase) {
    case ClaseToken::Texto:
    case ClaseToken::Numero:
    case ClaseToken::Fecha:
      return true;
    default:
      return token.palabra == Palabra::True || token.palabra == Palabra::False;
  }
}

std::vector<Valor> LeerLiterales(std::span<const Token> tokens,
                                 std::span<const std::optional<TipoColumna>> tipos) {
  std::vector<Valor> valores;
  valores.reserve(tipos.size());
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!EsLiteral(tokens[i])) continue;
    const bool negativo = i > 0 && tokens[i - 1].simbolo == Simbolo::Menos;
    Valor valor = Leer(tokens[i], negativo);
    const auto& tipo = tipos[valores.size()];
    valores.push_back(tipo ? Adaptado(std::move(valor), *tipo) : std::move(valor));
  }
  return valores;
}

}  // namespace dialecto
