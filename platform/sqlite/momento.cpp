#include "sqlite/momento.h"

#include "valores/numero.h"

namespace sqlite {

using services::FechaHora;

namespace {

constexpr std::size_t kDia = 10;      // of the text above, what tells the day
constexpr std::size_t kMinutos = 16;  // and the minute

/// -1 where there are other signs than figures.
int Parte(std::string_view texto, std::size_t desde, std::size_t cifras) {
  return services::EnteroDeCifras(texto.substr(desde, cifras)).value_or(-1);
}

bool TieneFormaIso(std::string_view texto) {
  if (texto.size() != kDia && texto.size() != kMinutos && texto.size() != 19) return false;
  if (texto[4] != '-' || texto[7] != '-') return false;
  if (texto.size() == kDia) return true;
  if ((texto[kDia] != ' ' && texto[kDia] != 'T') || texto[13] != ':') return false;
  return texto.size() == kMinutos || texto[kMinutos] == ':';
}

std::optional<FechaHora> LeerIso(std::string_view texto) {
  const int anio = Parte(texto, 0, 4);
  const int mes = Parte(texto, 5, 2);
  const int dia = Parte(texto, 8, 2);
  const int hora = texto.size() > kDia ? Parte(texto, 11, 2) : 0;
  const int minuto = texto.size() > kDia ? Parte(texto, 14, 2) : 0;
  const int segundo = texto.size() > kMinutos ? Parte(texto, 17, 2) : 0;
  const bool existe = anio >= 100 && mes >= 1 && mes <= 12 && dia >= 1 &&
                      dia <= services::DiasDelMes(anio, mes) && hora >= 0 && hora < 24 &&
                      minuto >= 0 && minuto < 60 && segundo >= 0 && segundo < 60;
  if (!existe) return {};
  return services::HacerFecha(anio, mes, dia, hora, minuto, segundo);
}

}  // namespace

std::optional<FechaHora> LeerMomento(std::string_view texto) {
  return TieneFormaIso(texto) ? LeerIso(texto) : services::LeerFecha(texto);
}

}  // namespace sqlite
