#include "salvaguarda/omitidas.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"
#include "valores/error.h"
#include "valores/texto.h"

namespace salvaguarda {
namespace {

using services::Omision;
using services::Valor;

std::string Campo(const Omision& omision, std::string_view nombre) {
  const auto campo = std::ranges::find(omision.Fila, nombre, &Omision::Campo::Nombre);
  return campo == omision.Fila.end() ? "" : campo->Valor.Texto();
}

/// Whether what failed was the look for an invoice's cash entries: the row is then the invoice.
bool DeUnaFactura(const Omision& omision) {
  return omision.Tabla == "TempCajaPagos" && !Campo(omision, "NConcepto").empty();
}

Fila ComoFila(const Omision& omision) {
  const Tabla* tabla = BuscarTabla(DeUnaFactura(omision) ? "ProvFacturas" : omision.Tabla);
  if (tabla == nullptr) return {omision.Tabla, "", "", "", "", omision.Fallo.Descripcion()};
  return {std::string(tabla->Nombre),
          Campo(omision, tabla->Concepto),
          std::string(services::Trim(Campo(omision, tabla->Numero))),
          Campo(omision, tabla->Anio),
          Campo(omision, tabla->Detalle),
          omision.Fallo.Descripcion()};
}

std::string Literal(const Valor& valor) {
  if (const auto* momento = valor.Si<services::FechaHora>()) {
    return sql::Texto(services::TextoIso(*momento));
  }
  return valor.EsTexto() ? sql::Texto(valor.Texto()) : std::to_string(valor.Numero());
}

/// The condition that finds the row by its key; empty where it isn't known whole.
std::string CondicionDe(const Omision& omision, const Tabla& tabla) {
  std::vector<std::string> condiciones;
  for (const std::string_view nombre : tabla.Clave()) {
    const auto campo = std::ranges::find(omision.Fila, nombre, &Omision::Campo::Nombre);
    if (campo == omision.Fila.end() || campo->Valor.EsNulo()) return "";
    condiciones.push_back(sql::Juntar({nombre, " = ", Literal(campo->Valor)}));
  }
  return sql::Separar(condiciones, " AND ");
}

bool DicenLoMismo(const Valor& a, const Valor& b) {
  return (a.EsNulo() && b.EsNulo()) || services::Igual(a, b).value_or(false);
}

/// Whether the stored table holds the row as it was to be written. What can't be looked at is not
/// there.
bool EstaIgual(const Omision& omision, sqlite::Conexion& almacenados) try {
  const Tabla* tabla = BuscarTabla(omision.Tabla);
  if (tabla == nullptr) return false;
  const std::string condicion = CondicionDe(omision, *tabla);
  if (condicion.empty()) return false;
  const auto hallada =
      almacenados.Consultar(sql::Juntar({"SELECT * FROM ", omision.Tabla, " WHERE ", condicion}));
  if (hallada.Filas.Cuantas() != 1) return false;
  for (std::size_t i = 0; i < hallada.Columnas.size(); ++i) {
    const std::string& nombre = hallada.Columnas[i].Nombre;
    if (!tabla->EsContenido(nombre)) continue;
    const auto campo = std::ranges::find(omision.Fila, nombre, &Omision::Campo::Nombre);
    if (campo != omision.Fila.end() && !DicenLoMismo(campo->Valor, hallada.Filas.En(0, i))) {
      return false;
    }
  }
  return true;
} catch (const services::ErrorEjecucion&) {
  return false;
}

/// Where a row belongs that isn't as it was to be.
std::vector<Fila>& Destino(Omitidas& omitidas, const Omision& omision) {
  if (omision.Que == Omision::Falta::Valor) return omitidas.Incompletas;
  const bool apunte = omision.Tabla == "TempCajaPagos";
  return apunte ? omitidas.Apuntes : omitidas.Filas;
}

}  // namespace

Omitidas Clasificar(const std::vector<Omision>& omisiones, Omision::Tarea durante,
                    sqlite::Conexion& almacenados) {
  Omitidas omitidas;
  for (const Omision& omision : omisiones) {
    if (omision.Durante != durante || omision.Que == Omision::Falta::Nada) continue;
    if (omision.Que == Omision::Falta::Tabla) {
      omitidas.Tablas.push_back(ComoFila(omision));
    } else if (DeUnaFactura(omision)) {
      omitidas.SinApuntes.push_back(ComoFila(omision));
    } else if (durante == Omision::Tarea::Carga || !EstaIgual(omision, almacenados)) {
      Destino(omitidas, omision).push_back(ComoFila(omision));
    }
  }
  std::set<Fila, PorSuClave> dichas(omitidas.Filas.begin(), omitidas.Filas.end());
  dichas.insert(omitidas.Apuntes.begin(), omitidas.Apuntes.end());
  std::erase_if(omitidas.Incompletas,
                [&](const Fila& fila) { return !dichas.insert(fila).second; });
  return omitidas;
}

}  // namespace salvaguarda
