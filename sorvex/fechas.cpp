#include "sorvex/fechas.h"

#include <algorithm>
#include <optional>

#include "valores/fecha.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace sorvex {
namespace {

using services::Calendario;

constexpr std::string_view kGuardada = "R";
constexpr int kPrimerAnio = 100;

bool SonCifras(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), services::EsCifra);
}

/// Of a text that is nothing but figures, few enough.
int NumeroDe(std::string_view cifras) {
  return services::EnteroDeCifras(cifras).value_or(0);
}

/// Takes one or two figures and the separator behind them off the front of the text.
std::optional<int> TomarParte(std::string_view& texto) {
  std::size_t largo = 0;
  while (largo < 2 && largo < texto.size() && services::EsCifra(texto[largo])) ++largo;
  if (largo == 0 || largo == texto.size()) return std::nullopt;
  const char separador = texto[largo];
  if (separador != '/' && separador != '-' && separador != '.') return std::nullopt;
  const int numero = NumeroDe(texto.substr(0, largo));
  texto.remove_prefix(largo + 1);
  return numero;
}

std::optional<int> LeerAnio(std::string_view texto) {
  if ((texto.size() != 2 && texto.size() != 4) || !SonCifras(texto)) return std::nullopt;
  const int anio = NumeroDe(texto);
  if (texto.size() == 4) return anio;
  return services::AnioDeDosCifras(anio);
}

/// The day of the calendar that three numbers tell, its day brought inside the month.
std::optional<Calendario> Formar(int anio, int mes, int dia) {
  if (anio < kPrimerAnio || mes < 1 || mes > 12 || dia < 1) return std::nullopt;
  return Calendario{anio, mes, std::min(dia, services::DiasDelMes(anio, mes))};
}

std::optional<Calendario> LeerCifras(std::string_view texto) {
  const std::optional<int> anio = LeerAnio(texto.substr(4));
  if (!anio) return std::nullopt;
  return Formar(*anio, NumeroDe(texto.substr(2, 2)), NumeroDe(texto.substr(0, 2)));
}

std::optional<Calendario> LeerPartes(std::string_view texto) {
  const std::optional<int> dia = TomarParte(texto);
  if (!dia) return std::nullopt;
  const std::optional<int> mes = TomarParte(texto);
  if (!mes) return std::nullopt;
  const std::optional<int> anio = LeerAnio(texto);
  if (!anio) return std::nullopt;
  return Formar(*anio, *mes, *dia);
}

bool EsHora(std::string_view texto) {
  return texto.find(':') != std::string_view::npos && services::LeerFecha(texto).has_value();
}

std::optional<Calendario> LeerMostrada(std::string_view texto) {
  const std::size_t blanco = texto.find(' ');
  if (blanco != std::string_view::npos) {
    if (!EsHora(texto.substr(blanco + 1))) return std::nullopt;
    texto = texto.substr(0, blanco);
  }
  const bool seguidas = (texto.size() == 6 || texto.size() == 8) && SonCifras(texto);
  return seguidas ? LeerCifras(texto) : LeerPartes(texto);
}

std::optional<Calendario> LeerGuardada(std::string_view texto) {
  if (texto.size() != 8 || !SonCifras(texto)) return std::nullopt;
  return Formar(NumeroDe(texto.substr(0, 4)), NumeroDe(texto.substr(4, 2)),
                NumeroDe(texto.substr(6, 2)));
}

void PonerCifras(std::string& texto, std::size_t desde, std::size_t cuantas, int numero) {
  for (std::size_t i = cuantas; i > 0; --i, numero /= 10) {
    texto[desde + i - 1] = static_cast<char>('0' + numero % 10);
  }
}

std::string Mostrada(const Calendario& fecha) {
  std::string texto = "00/00/0000";
  PonerCifras(texto, 0, 2, fecha.Dia);
  PonerCifras(texto, 3, 2, fecha.Mes);
  PonerCifras(texto, 6, 4, fecha.Anio);
  return texto;
}

std::string Guardada(const Calendario& fecha) {
  std::string texto = "00000000";
  PonerCifras(texto, 0, 4, fecha.Anio);
  PonerCifras(texto, 4, 2, fecha.Mes);
  PonerCifras(texto, 6, 2, fecha.Dia);
  return texto;
}

}  // namespace

std::string ConvertirFecha(std::string_view fecha, std::string_view desde, std::string_view hacia) {
  const bool vieneGuardada = desde == kGuardada;
  const bool vaGuardada = hacia == kGuardada;
  const std::string_view texto = services::Trim(fecha);
  const std::optional<Calendario> leida = vieneGuardada ? LeerGuardada(texto) : LeerMostrada(texto);
  if (!leida) return vieneGuardada || vaGuardada ? std::string() : std::string(fecha);
  return vaGuardada ? Guardada(*leida) : Mostrada(*leida);
}

}  // namespace sorvex
