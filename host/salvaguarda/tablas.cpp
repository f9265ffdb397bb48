#include "salvaguarda/tablas.h"

#include <algorithm>
#include <array>

#include "esquema/definiciones.h"

namespace salvaguarda {
namespace {

using Cosa = Tabla::Cosa;

constexpr std::array kTablas{
    Tabla{Cosa::Factura, "ProvFacturas", "factura", "facturas", "NConcepto", "Factura", "Año", "",
          "Total"},
    Tabla{Cosa::Base, "ProvBasesIva", "base de IVA", "bases de IVA", "NConcepto", "NFactura", "Año",
          "Tipo", "Importe"},
    Tabla{Cosa::Vencimiento, "ProvVencimientos", "vencimiento", "vencimientos", "NConcepto",
          "NFactura", "Año", "FechaVto", "Importe"},
    Tabla{Cosa::Prevision, "ProvPrevisionPagos", "previsión", "previsiones", "NConcepto", "", "",
          "Fecha1Vto", "Importe"},
    Tabla{Cosa::Apunte, "CajaPagos", "apunte de caja", "apuntes de caja", "Tipo", "Factura", "Año",
          "FechaHora", "Importe"},
};
constexpr std::size_t kDeFactura = 3;

constexpr std::string_view kDeTrabajo = "Temp";

const esquema::Tabla& Definicion(const Tabla& tabla) {
  return *std::ranges::find(esquema::Almacenadas(), tabla.Nombre, &esquema::Tabla::Nombre);
}

}  // namespace

std::span<const std::string_view> Tabla::Clave() const {
  return Definicion(*this).Clave;
}

std::vector<std::string_view> Tabla::Contenido() const {
  std::vector<std::string_view> columnas;
  for (const esquema::Columna& columna : Definicion(*this).Columnas) {
    if (EsContenido(columna.Nombre)) columnas.push_back(columna.Nombre);
  }
  return columnas;
}

bool Tabla::EsContenido(std::string_view columna) const {
  if (columna == "Actualizado" || columna == "ModificadoPor") return false;
  if (Que != Cosa::Apunte || columna == Numero || columna == Anio) return true;
  return std::ranges::find(Clave(), columna) != Clave().end();
}

bool Tabla::EsDeTexto(std::string_view columna) const {
  const auto columnas = Definicion(*this).Columnas;
  const auto suya = std::ranges::find(columnas, columna, &esquema::Columna::Nombre);
  return suya != columnas.end() && suya->Tipo == services::TipoColumna::Texto;
}

std::span<const Tabla> Tablas() {
  return kTablas;
}

std::span<const Tabla> TablasDeFactura() {
  return Tablas().first(kDeFactura);
}

const Tabla& Previsiones() {
  return kTablas[kDeFactura];
}

const Tabla& Apuntes() {
  return kTablas.back();
}

const Tabla* BuscarTabla(std::string_view nombre) {
  if (nombre.starts_with(kDeTrabajo)) nombre.remove_prefix(kDeTrabajo.size());
  const auto tabla = std::ranges::find(kTablas, nombre, &Tabla::Nombre);
  return tabla == kTablas.end() ? nullptr : &*tabla;
}

}  // namespace salvaguarda
