#include "valores/fecha.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "valores/error.h"
#include "valores/texto.h"

namespace services {
namespace {

constexpr int kPrimerAnio = 100;
constexpr int kUltimoAnio = 9999;
constexpr int kSegundosHora = 3600;
constexpr int kSegundosMinuto = 60;

/// More days than there are between the first and the last date: a larger sum is outside for sure.
constexpr std::int64_t kMaximoSalto = 4'000'000;

constexpr std::array<std::string_view, 12> kMeses = {
    "enero", "febrero", "marzo",      "abril",   "mayo",      "junio",
    "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
constexpr std::array<std::string_view, 7> kDiasSemana = {
    "domingo", "lunes", "martes", "miércoles", "jueves", "viernes", "sábado"};

constexpr std::chrono::sys_days DiaCero() {
  return std::chrono::year{1899} / std::chrono::December / 30;
}

std::chrono::sys_days DiaDe(FechaHora momento) {
  return DiaCero() + std::chrono::days{momento.Dias};
}

std::chrono::year_month MesDe(int anio, int mes) {
  return std::chrono::year{anio} / std::chrono::month{static_cast<unsigned>(mes)};
}

bool EsAnioValido(std::int64_t anio) {
  return kPrimerAnio <= anio && anio <= kUltimoAnio;
}

[[noreturn]] void Desbordar() {
  throw ErrorEjecucion(error::LlamadaNoValida, "La fecha se sale del calendario");
}

[[noreturn]] void RechazarTipo() {
  throw ErrorEjecucion(error::TiposNoCoinciden, "No coinciden los tipos");
}

FechaHora SumarDias(std::int64_t cuantos, FechaHora desde) {
  const std::int64_t dias = desde.Dias + cuantos;
  if (dias < HacerFecha(kPrimerAnio, 1, 1).Dias || dias > HacerFecha(kUltimoAnio, 12, 31).Dias) {
    Desbordar();
  }
  return {static_cast<std::int32_t>(dias), desde.Segundos};
}

FechaHora SumarMeses(std::int64_t cuantos, FechaHora desde) {
  const Calendario origen = Descomponer(desde);
  const std::int64_t meses = std::int64_t{origen.Anio} * 12 + origen.Mes - 1 + cuantos;
  if (meses < 0 || !EsAnioValido(meses / 12)) Desbordar();
  const int anio = static_cast<int>(meses / 12);
  const int mes = static_cast<int>(meses % 12) + 1;
  const int dia = std::min(origen.Dia, DiasDelMes(anio, mes));
  return {HacerFecha(anio, mes, dia).Dias, desde.Segundos};
}

/// Takes from the front of the text all its figures, which must be `minimo` to `maximo`.
std::optional<int> TomarNumero(std::string_view& texto, std::size_t minimo, std::size_t maximo) {
  const std::size_t cifras = std::min(texto.find_first_not_of("0123456789"), texto.size());
  if (cifras < minimo || cifras > maximo) return std::nullopt;
  int numero = 0;
  std::from_chars(texto.data(), texto.data() + cifras, numero);
  texto.remove_prefix(cifras);
  return numero;
}

/// Takes one character from the front of the text if it is one of `signos`.
bool TomarSigno(std::string_view& texto, std::string_view signos) {
  if (texto.empty() || signos.find(texto.front()) == std::string_view::npos) return false;
  texto.remove_prefix(1);
  return true;
}

/// The year that is all of `texto`.
std::optional<int> LeerAnio(std::string_view texto) {
  const std::size_t cifras = texto.size();
  const std::optional<int> anio = TomarNumero(texto, 2, 4);
  if (!anio || !texto.empty() || cifras == 3) return std::nullopt;
  if (cifras == 4) return anio;
  return AnioDeDosCifras(*anio);
}

std::optional<std::int32_t> LeerDias(std::string_view texto) {
  constexpr std::string_view kSeparadores = "/-.";
  const std::optional<int> dia = TomarNumero(texto, 1, 2);
  if (!dia || !TomarSigno(texto, kSeparadores)) return std::nullopt;
  const std::optional<int> mes = TomarNumero(texto, 1, 2);
  if (!mes || !TomarSigno(texto, kSeparadores)) return std::nullopt;
  const std::optional<int> anio = LeerAnio(texto);
  if (!anio || !EsAnioValido(*anio) || *mes < 1 || *mes > 12) return std::nullopt;
  if (*dia < 1 || *dia > DiasDelMes(*anio, *mes)) return std::nullopt;
  return HacerFecha(*anio, *mes, *dia).Dias;
}

/// Two figures from 00 to 59 after a colon.
std::optional<int> TomarSexagesimal(std::string_view& texto) {
  if (!TomarSigno(texto, ":")) return std::nullopt;
  const std::optional<int> numero = TomarNumero(texto, 2, 2);
  return numero && *numero < 60 ? numero : std::nullopt;
}

std::optional<std::int32_t> LeerSegundos(std::string_view texto) {
  const std::optional<int> hora = TomarNumero(texto, 1, 2);
  if (!hora || *hora > 23) return std::nullopt;
  const std::optional<int> minuto = TomarSexagesimal(texto);
  if (!minuto) return std::nullopt;
  const std::optional<int> segundo = texto.empty() ? 0 : TomarSexagesimal(texto);
  if (!segundo || !texto.empty()) return std::nullopt;
  return *hora * kSegundosHora + *minuto * kSegundosMinuto + *segundo;
}

std::string Rellenado(int numero, std::size_t cifras) {
  std::string texto = std::to_string(numero);
  if (texto.size() < cifras) texto.insert(0, cifras - texto.size(), '0');
  return texto;
}

std::string TextoDeHora(int segundos) {
  return std::to_string(segundos / kSegundosHora) + ':' +
         Rellenado(segundos % kSegundosHora / kSegundosMinuto, 2) + ':' +
         Rellenado(segundos % kSegundosMinuto, 2);
}

std::string TextoDeDia(FechaHora momento) {
  const Calendario fecha = Descomponer(momento);
  return Rellenado(fecha.Dia, 2) + '/' + Rellenado(fecha.Mes, 2) + '/' + Rellenado(fecha.Anio, 4);
}

}  // namespace

FechaHora HacerFecha(int anio, int mes, int dia, int hora, int minuto, int segundo) {
  const std::chrono::sys_days alba{MesDe(anio, mes) / dia};
  return {static_cast<std::int32_t>((alba - DiaCero()).count()),
          hora * kSegundosHora + minuto * kSegundosMinuto + segundo};
}

Calendario Descomponer(FechaHora momento) {
  const std::chrono::year_month_day fecha{DiaDe(momento)};
  return {static_cast<int>(fecha.year()), static_cast<int>(static_cast<unsigned>(fecha.month())),
          static_cast<int>(static_cast<unsigned>(fecha.day()))};
}

int DiasDelMes(int anio, int mes) {
  const std::chrono::year_month_day_last ultimo = MesDe(anio, mes) / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(ultimo.day()));
}

FechaHora SumarFecha(std::string_view unidad, std::int64_t cuantos, FechaHora desde) {
  const bool dias = MismoTexto(unidad, "d");
  const bool meses = MismoTexto(unidad, "m");
  if (!dias && !meses && !MismoTexto(unidad, "yyyy")) RechazarTipo();
  if (cuantos < -kMaximoSalto || cuantos > kMaximoSalto) Desbordar();
  if (dias) return SumarDias(cuantos, desde);
  return SumarMeses(meses ? cuantos : cuantos * 12, desde);
}

std::optional<FechaHora> LeerFecha(std::string_view texto) {
  texto = Trim(texto);
  const std::size_t blanco = texto.find(' ');
  const bool solo_hora = texto.find(':') < blanco;
  const std::optional<std::int32_t> dias = solo_hora ? 0 : LeerDias(texto.substr(0, blanco));
  if (!dias) return std::nullopt;
  if (!solo_hora && blanco == std::string_view::npos) return FechaHora{*dias, 0};
  const std::optional<std::int32_t> segundos =
      LeerSegundos(solo_hora ? texto : texto.substr(blanco + 1));
  if (!segundos) return std::nullopt;
  return FechaHora{*dias, *segundos};
}

void RechazarFecha(std::string_view texto) {
  throw ErrorEjecucion(error::TiposNoCoinciden, texto.empty()
                                                    ? "No coinciden los tipos: falta una fecha"
                                                    : "No coinciden los tipos: «" +
                                                          std::string(texto) + "» no es una fecha");
}

FechaHora Fecha(std::string_view texto) {
  const std::optional<FechaHora> momento = LeerFecha(texto);
  if (!momento) RechazarFecha(texto);
  return *momento;
}

std::string TextoDeFecha(FechaHora momento) {
  if (momento.Dias == 0) return TextoDeHora(momento.Segundos);
  if (momento.Segundos == 0) return TextoDeDia(momento);
  return TextoDeDia(momento) + ' ' + TextoDeHora(momento.Segundos);
}

// Written figure by figure: each stored row is stamped with one.
std::string TextoIso(FechaHora momento) {
  const Calendario dia = Descomponer(momento);
  const int segundos = momento.Segundos;
  std::string texto = "0000-00-00 00:00:00";
  const auto poner = [&](std::size_t desde, std::size_t cifras, int valor) {
    for (; cifras > 0; valor /= 10) texto[desde + --cifras] = static_cast<char>('0' + valor % 10);
  };
  poner(0, 4, dia.Anio);
  poner(5, 2, dia.Mes);
  poner(8, 2, dia.Dia);
  poner(11, 2, segundos / 3600);
  poner(14, 2, segundos / 60 % 60);
  poner(17, 2, segundos % 60);
  return texto;
}

std::string FechaLarga(FechaHora momento) {
  const Calendario fecha = Descomponer(momento);
  std::string texto(kDiasSemana[std::chrono::weekday{DiaDe(momento)}.c_encoding()]);
  texto += ", " + std::to_string(fecha.Dia) + " de ";
  texto += kMeses[static_cast<std::size_t>(fecha.Mes) - 1];
  return texto + " de " + std::to_string(fecha.Anio);
}

int Year(std::string_view texto) {
  return Descomponer(Fecha(texto)).Anio;
}
int Month(std::string_view texto) {
  return Descomponer(Fecha(texto)).Mes;
}
int Day(std::string_view texto) {
  return Descomponer(Fecha(texto)).Dia;
}

}  // namespace services
