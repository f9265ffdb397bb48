#include "valores/valor.h"

#include "valores/error.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace services {
namespace {

constexpr std::string_view kVerdadero = "Verdadero";
constexpr std::string_view kFalso = "Falso";
constexpr double kSegundosDia = 86400;

struct ATexto {
  std::string operator()(Nulo) const { return {}; }
  std::string operator()(bool logico) const { return std::string(logico ? kVerdadero : kFalso); }
  std::string operator()(std::int32_t entero) const { return std::to_string(entero); }
  std::string operator()(double numero) const { return TextoDeNumero(numero); }
  std::string operator()(FechaHora momento) const { return TextoDeFecha(momento); }
  std::string operator()(const std::string& texto) const { return texto; }
};

struct ANumero {
  double operator()(Nulo) const { throw ErrorEjecucion(error::UsoDeNull, "Uso no válido de Null"); }
  double operator()(bool logico) const { return logico ? -1 : 0; }
  double operator()(std::int32_t entero) const { return entero; }
  double operator()(double numero) const { return numero; }
  double operator()(FechaHora momento) const {
    return momento.Dias + momento.Segundos / kSegundosDia;
  }
  double operator()(const std::string& texto) const { return services::Numero(texto); }
};

/// A value against a text: as numbers where both are numbers, as texts otherwise.
bool IgualATexto(const Valor& valor, const std::string& texto) {
  const bool numerico = !valor.EsTexto() && valor.Si<FechaHora>() == nullptr;
  const std::optional<double> numero = numerico ? LeerNumero(texto) : std::nullopt;
  return numero ? valor.Numero() == *numero : MismoTexto(valor.Texto(), texto);
}

}  // namespace

std::string Valor::Texto() const {
  return std::visit(ATexto{}, valor_);
}

double Valor::Numero() const {
  return std::visit(ANumero{}, valor_);
}

bool Valor::Logico() const {
  if (const auto* texto = Si<std::string>()) {
    if (MismoTexto(*texto, kVerdadero)) return true;
    if (MismoTexto(*texto, kFalso)) return false;
  }
  return Numero() != 0;
}

std::optional<bool> Igual(const Valor& a, const Valor& b) {
  if (a.EsNulo() || b.EsNulo()) return std::nullopt;
  if (const auto* texto = b.Si<std::string>()) return IgualATexto(a, *texto);
  if (const auto* texto = a.Si<std::string>()) return IgualATexto(b, *texto);
  return a.Numero() == b.Numero();
}

}  // namespace services
