#include "datos/conversion.h"

#include <cmath>
#include <limits>
#include <optional>

#include "valores/error.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace services {

namespace {

constexpr double LimiteMoneda = 1e13;

[[noreturn]] void NoCabe(const Columna& columna, const char* motivo) {
  throw ErrorEjecucion(error::RepetidoONoCabe,
                       "El valor no cabe en la columna «" + columna.Nombre + "»: " + motivo);
}

bool Cabe(std::string_view texto, int longitud) {
  const auto limite = static_cast<std::size_t>(longitud);
  return longitud == 0 || texto.size() <= limite || Longitud(texto) <= limite;
}

const Valor& ATexto(const Valor& valor, const Columna& columna, Valor& lugar) {
  const Valor* resultado = &valor;
  if (!valor.EsTexto()) {
    lugar = valor.Texto();
    resultado = &lugar;
  }
  if (!Cabe(*resultado->Si<std::string>(), columna.Longitud)) NoCabe(columna, "texto largo");
  return *resultado;
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
  if (*numero != std::trunc(*numero)) NoCabe(columna, "no es un número entero");
  if (*numero < std::numeric_limits<std::int32_t>::min() ||
      *numero > std::numeric_limits<std::int32_t>::max()) {
    NoCabe(columna, "número demasiado grande");
  }
  lugar = static_cast<std::int32_t>(*numero);
  return lugar;
}

const Valor& ANumero(const Valor& valor, const Columna& columna, Valor& lugar, double limite) {
  const auto numero = NumeroDe(valor);
  if (!numero) NoCabe(columna, "no es un número");
  if (!(std::fabs(*numero) < limite)) NoCabe(columna, "número demasiado grande");
  if (valor.Si<double>()) return valor;
  lugar = *numero;
  return lugar;
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
      return ATexto(valor, columna, lugar);
    case TipoColumna::Entero:
      return AEntero(valor, columna, lugar);
    case TipoColumna::Moneda:
      return ANumero(valor, columna, lugar, LimiteMoneda);
    case TipoColumna::Numero:
      return ANumero(valor, columna, lugar, std::numeric_limits<double>::infinity());
    case TipoColumna::Logico:
      return ALogico(valor, columna, lugar);
    case TipoColumna::FechaHora:
      return AFecha(valor, columna, lugar);
  }
  return valor;
}

}  // namespace services
