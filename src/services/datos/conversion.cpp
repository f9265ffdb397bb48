#include "datos/conversion.h"

#include <cmath>
#include <limits>
#include <optional>

#include "valores/error.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace services {

namespace {

/// From here on the 15 figures that a mask rounds on don't reach the cents.
constexpr double kSinCentimos = 1e13;

[[noreturn]] void NoCabe(const Columna& columna, const char* motivo) {
  throw ErrorEjecucion(error::RepetidoONoCabe,
                       "El valor no cabe en la columna «" + columna.Nombre + "»: " + motivo);
}

const Valor& ATexto(const Valor& valor, Valor& lugar) {
  if (valor.EsTexto()) return valor;
  return lugar = valor.Texto();
}

/// The number that a value stands for; none for a date or a text that is no number.
std::optional<double> NumeroDe(const Valor& valor) {
  if (const auto* numero = valor.Si<double>()) return *numero;
  if (const auto* entero = valor.Si<std::int32_t>()) return *entero;
  if (const auto* logico = valor.Si<bool>()) return *logico ? -1.0 : 0.0;
  if (const auto* texto = valor.Si<std::string>()) return LeerNumero(*texto);
  return {};
}

const Valor& AEntero(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (valor.Si<std::int32_t>()) return valor;
  const auto numero = NumeroDe(valor);
  if (!numero) NoCabe(columna, "no es un número");
  const bool entero = *numero == std::trunc(*numero);
  const bool de32Bits = *numero >= std::numeric_limits<std::int32_t>::min() &&
                        *numero <= std::numeric_limits<std::int32_t>::max();
  if (entero && de32Bits) return lugar = static_cast<std::int32_t>(*numero);
  // A number of another kind is what some table holds, and goes back as it came.
  if (valor.Si<double>()) return valor;
  NoCabe(columna, entero ? "número demasiado grande" : "no es un número entero");
}

const Valor& ANumero(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (valor.Si<double>()) return valor;
  const auto numero = NumeroDe(valor);
  if (!numero) NoCabe(columna, "no es un número");
  if (!std::isfinite(*numero)) NoCabe(columna, "número demasiado grande");
  const bool redondea = columna.Tipo == TipoColumna::Moneda && std::abs(*numero) < kSinCentimos;
  return lugar = redondea ? EnCentimos(*numero) : *numero;
}

const Valor& ALogico(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (valor.Si<bool>()) return valor;
  if (const auto* texto = valor.Si<std::string>()) {
    if (MismoTexto(*texto, "Verdadero")) return lugar = true;
    if (MismoTexto(*texto, "Falso")) return lugar = false;
  }
  const auto numero = NumeroDe(valor);
  if (!numero) NoCabe(columna, "no es un valor lógico");
  return lugar = (*numero != 0.0);
}

const Valor& AFecha(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (valor.Si<FechaHora>()) return valor;
  const auto* texto = valor.Si<std::string>();
  const auto momento = texto ? LeerFecha(*texto) : std::nullopt;
  if (!momento) NoCabe(columna, "no es una fecha");
  return lugar = *momento;
}

bool EsTextoVacio(const Valor& valor) {
  const auto* texto = valor.Si<std::string>();
  return texto && texto->empty();
}

const Valor& ANulo(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (!columna.AdmiteNulo) NoCabe(columna, "no puede quedar vacía");
  if (valor.EsNulo()) return valor;
  return lugar = Nulo{};
}

}  // namespace

const Valor& Convertir(const Valor& valor, const Columna& columna, Valor& lugar) {
  if (valor.EsNulo() || (columna.Tipo != TipoColumna::Texto && EsTextoVacio(valor))) {
    return ANulo(valor, columna, lugar);
  }
  switch (columna.Tipo) {
    case TipoColumna::Texto:
      return ATexto(valor, lugar);
    case TipoColumna::Entero:
      return AEntero(valor, columna, lugar);
    case TipoColumna::Moneda:
    case TipoColumna::Numero:
      return ANumero(valor, columna, lugar);
    case TipoColumna::Logico:
      return ALogico(valor, columna, lugar);
    case TipoColumna::FechaHora:
      return AFecha(valor, columna, lugar);
  }
  return valor;
}

}  // namespace services
