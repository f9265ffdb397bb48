#include "sqlite/momento.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace sqlite {

using services::FechaHora;
using services::Valor;

namespace {

constexpr std::size_t kFormas = 6;
constexpr std::size_t kDia = 10;      // of the text above, what tells the day
constexpr std::size_t kMinutos = 16;  // and the minute

int Entero(std::string_view texto) {
  int valor = -1;
  const auto [fin, fallo] = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  return fallo == std::errc() && fin == texto.data() + texto.size() ? valor : -1;
}

bool TieneFormaIso(std::string_view texto) {
  if (texto.size() != kDia && texto.size() != kMinutos && texto.size() != 19) return false;
  if (texto[4] != '-' || texto[7] != '-') return false;
  return texto.size() == kDia || texto[kDia] == ' ' || texto[kDia] == 'T';
}

std::optional<FechaHora> LeerIso(std::string_view texto) {
  const int anio = Entero(texto.substr(0, 4));
  const int mes = Entero(texto.substr(5, 2));
  const int dia = Entero(texto.substr(8, 2));
  const int hora = texto.size() > kDia ? Entero(texto.substr(11, 2)) : 0;
  const int minuto = texto.size() > kDia ? Entero(texto.substr(14, 2)) : 0;
  const int segundo = texto.size() > kMinutos ? Entero(texto.substr(17, 2)) : 0;
  const bool existe = anio >= 100 && mes >= 1 && mes <= 12 && dia >= 1 &&
                      dia <= services::DiasDelMes(anio, mes) && hora >= 0 && hora < 24 &&
                      minuto >= 0 && minuto < 60 && segundo >= 0 && segundo < 60;
  if (!existe) return {};
  return services::HacerFecha(anio, mes, dia, hora, minuto, segundo);
}

std::string ConT(std::string iso) {
  iso[kDia] = 'T';
  return iso;
}

}  // namespace

std::string Iso(FechaHora momento) {
  const auto dia = services::Descomponer(momento);
  const int segundos = momento.Segundos;
  std::array<char, 64> texto{};
  const int largo =
      std::snprintf(texto.data(), texto.size(), "%04d-%02d-%02d %02d:%02d:%02d", dia.Anio, dia.Mes,
                    dia.Dia, segundos / 3600, segundos / 60 % 60, segundos % 60);
  return {texto.data(), static_cast<std::size_t>(largo)};
}

std::optional<FechaHora> LeerMomento(std::string_view texto) {
  return TieneFormaIso(texto) ? LeerIso(texto) : services::LeerFecha(texto);
}

std::vector<Valor> FormasDeMomento(const Valor& valor) {
  const auto* momento = valor.Si<FechaHora>();
  if (!momento) return std::vector<Valor>(kFormas);
  const std::string iso = Iso(*momento);
  // A form that this moment hasn't stands as its full text once more.
  const std::string minutos = momento->Segundos % 60 == 0 ? iso.substr(0, kMinutos) : iso;
  const std::string dia = momento->Segundos == 0 ? iso.substr(0, kDia) : iso;
  return {iso, ConT(iso), minutos, ConT(minutos), dia, services::TextoDeFecha(*momento)};
}

}  // namespace sqlite
