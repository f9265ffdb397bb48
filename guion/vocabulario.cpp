#include <algorithm>
#include <array>

#include "forms/entrada.h"
#include "guion/gramatica.h"
#include "services/utiles.h"

namespace guion {
namespace {

struct NombreYCodigo {
  std::string_view Nombre;
  int Codigo;
};

constexpr std::array kTeclas{
    NombreYCodigo{"Intro", services::tecla::Intro},
    NombreYCodigo{"Escape", services::tecla::Escape},
    NombreYCodigo{"Tab", services::tecla::Tabulador},
    NombreYCodigo{"Borrar", services::tecla::Borrar},
    NombreYCodigo{"Suprimir", services::tecla::Suprimir},
    NombreYCodigo{"Arriba", services::tecla::Arriba},
    NombreYCodigo{"Abajo", services::tecla::Abajo},
    NombreYCodigo{"Izquierda", services::tecla::Izquierda},
    NombreYCodigo{"Derecha", services::tecla::Derecha},
    NombreYCodigo{"Espacio", services::tecla::Espacio},
};

constexpr std::array kRespuestas{
    NombreYCodigo{"si", services::mensaje::Si},
    NombreYCodigo{"no", services::mensaje::No},
    NombreYCodigo{"cancelar", services::mensaje::Cancelar},
    NombreYCodigo{"aceptar", services::mensaje::Aceptar},
};

constexpr std::array kAspectos{
    NombreDeAspecto{services::Aspecto::Text, "Text"},
    NombreDeAspecto{services::Aspecto::Caption, "Caption"},
    NombreDeAspecto{services::Aspecto::Value, "Value"},
    NombreDeAspecto{services::Aspecto::ListIndex, "ListIndex"},
    NombreDeAspecto{services::Aspecto::Min, "Min"},
    NombreDeAspecto{services::Aspecto::Max, "Max"},
    NombreDeAspecto{services::Aspecto::Tag, "Tag"},
    NombreDeAspecto{services::Aspecto::Enabled, "Enabled"},
    NombreDeAspecto{services::Aspecto::Visible, "Visible"},
    NombreDeAspecto{services::Aspecto::BackColor, "BackColor"},
};

std::optional<int> Codigo(std::span<const NombreYCodigo> nombres, std::string_view nombre) {
  for (const NombreYCodigo& uno : nombres) {
    if (uno.Nombre == nombre) return uno.Codigo;
  }
  return std::nullopt;
}

/// `figuras` figures as a number, -1 where they are none.
int Cifras(std::string_view texto, std::size_t desde, std::size_t figuras) {
  int numero = 0;
  for (const char c : texto.substr(desde, figuras)) {
    if (c < '0' || c > '9') return -1;
    numero = numero * 10 + (c - '0');
  }
  return numero;
}

}  // namespace

std::span<const NombreDeAspecto> AspectosVisibles() {
  return kAspectos;
}

std::optional<int> CodigoDeTecla(std::string_view nombre) {
  return Codigo(kTeclas, nombre);
}

std::optional<int> CodigoDeRespuesta(std::string_view nombre) {
  return Codigo(kRespuestas, nombre);
}

std::string_view NombreDeRespuesta(int respuesta) {
  const auto una = std::find_if(kRespuestas.begin(), kRespuestas.end(),
                                [&](const auto& r) { return r.Codigo == respuesta; });
  return una == kRespuestas.end() ? std::string_view() : una->Nombre;
}

std::optional<services::FechaHora> LeerMomento(std::string_view fecha, std::string_view hora) {
  if (fecha.size() != 10 || fecha[4] != '-' || fecha[7] != '-') return std::nullopt;
  if (hora.size() != 8 || hora[2] != ':' || hora[5] != ':') return std::nullopt;
  const int anio = Cifras(fecha, 0, 4);
  const int mes = Cifras(fecha, 5, 2);
  const int dia = Cifras(fecha, 8, 2);
  const int horas = Cifras(hora, 0, 2);
  const int minutos = Cifras(hora, 3, 2);
  const int segundos = Cifras(hora, 6, 2);
  if (anio < 100 || mes < 1 || mes > 12 || dia < 1) return std::nullopt;
  if (dia > services::DiasDelMes(anio, mes)) return std::nullopt;
  if (horas < 0 || horas > 23 || minutos < 0 || minutos > 59) return std::nullopt;
  if (segundos < 0 || segundos > 59) return std::nullopt;
  return services::HacerFecha(anio, mes, dia, horas, minutos, segundos);
}

std::optional<Referencia> LeerReferencia(std::string_view palabra) {
  const std::size_t punto = palabra.find('.');
  Referencia referencia;
  if (punto != std::string_view::npos) {
    referencia.Pantalla = palabra.substr(0, punto);
    if (referencia.Pantalla.empty()) return std::nullopt;
    palabra.remove_prefix(punto + 1);
  }
  referencia.Widget = palabra;
  if (palabra.empty() || palabra.find('.') != std::string_view::npos) return std::nullopt;
  return referencia;
}

std::optional<DePropiedad> LeerPropiedad(std::string_view palabra) {
  const std::size_t punto = palabra.rfind('.');
  if (punto == std::string_view::npos) return std::nullopt;
  const std::string_view nombre = palabra.substr(punto + 1);
  const auto aspecto = std::find_if(kAspectos.begin(), kAspectos.end(),
                                    [&](const NombreDeAspecto& a) { return a.Nombre == nombre; });
  if (aspecto == kAspectos.end() || !LeerReferencia(palabra.substr(0, punto))) return std::nullopt;
  return DePropiedad{std::string(palabra.substr(0, punto)), aspecto->Aspecto};
}

}  // namespace guion
