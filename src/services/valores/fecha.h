#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace services {

/// A moment of the calendar: whole days from 30/12/1899, which is day 0, and seconds of the day.
/// The zero moment is day 0 at second 0.
struct FechaHora {
  std::int32_t Dias = 0;
  std::int32_t Segundos = 0;  ///< 0 to 86399

  auto operator<=>(const FechaHora&) const = default;
  [[nodiscard]] bool EsCero() const { return Dias == 0 && Segundos == 0; }
};

/// Year 100 to 9999, month 1 to 12, day 1 to 31.
struct Calendario {
  int Anio = 0;
  int Mes = 0;
  int Dia = 0;
};

/// The moment of a calendar day at `hora:minuto:segundo`. The day must exist.
[[nodiscard]] FechaHora HacerFecha(int anio, int mes, int dia, int hora = 0, int minuto = 0,
                                   int segundo = 0);
[[nodiscard]] Calendario Descomponer(FechaHora momento);
/// 28 to 31.
[[nodiscard]] int DiasDelMes(int anio, int mes);

/// The year that two figures tell: 00-29 are 20xx, 30-99 are 19xx.
[[nodiscard]] constexpr int AnioDeDosCifras(int cifras) {
  return cifras < 30 ? 2000 + cifras : 1900 + cifras;
}

/// Calendar addition. `unidad` is "d", "m" or "yyyy", case-blind; months and years keep the day
/// where the month has it and take its last day where it doesn't. Throws 13 for another unit and
/// 5 for a result outside the years 100 to 9999.
[[nodiscard]] FechaHora SumarFecha(std::string_view unidad, std::int64_t cuantos, FechaHora desde);

/// A date text of the user: day, month and year of one or two, one or two, and two or four
/// figures, split by `/`, `-` or `.`, which may be mixed; optionally a blank and a time h:nn or
/// h:nn:ss. A time alone is a moment of day 0. Blanks around don't count. Two-figure years 00-29
/// are 20xx, 30-99 are 19xx. No value where it is no date that exists.
[[nodiscard]] std::optional<FechaHora> LeerFecha(std::string_view texto);
/// The same, throwing 13 where it is none.
[[nodiscard]] FechaHora Fecha(std::string_view texto);
/// Throws 13, with the text that is no date.
[[noreturn]] void RechazarFecha(std::string_view texto);

/// The default text: `dd/mm/yyyy`, with ` h:nn:ss` unless it is midnight; `0:00:00` for the zero
/// moment, and the time alone for any other moment of day 0.
[[nodiscard]] std::string TextoDeFecha(FechaHora momento);
/// `yyyy-mm-dd hh:nn:ss`, whose order as text is that of the moments.
[[nodiscard]] std::string TextoIso(FechaHora momento);
/// `martes, 15 de marzo de 2005`
[[nodiscard]] std::string FechaLarga(FechaHora momento);

/// Parts of a date text; throw 13 where it is no date.
[[nodiscard]] int Year(std::string_view texto);
[[nodiscard]] int Month(std::string_view texto);
[[nodiscard]] int Day(std::string_view texto);

}  // namespace services
