#include "salvaguarda/fila.h"

#include <algorithm>

#include "salvaguarda/dicho.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

std::string DeFactura(const Fila& fila) {
  return fila.Factura + " de " + fila.Anio + " del concepto " + fila.NConcepto;
}

}  // namespace

std::string Nombre(const Fila& fila) {
  const Tabla* tabla = BuscarTabla(fila.Tabla);
  if (tabla == nullptr) return fila.Tabla;
  const std::string una(tabla->Una);
  switch (tabla->Que) {
    case Tabla::Cosa::Factura:
      return una + " " + DeFactura(fila);
    case Tabla::Cosa::Base:
      return una + " " + fila.Detalle + " de la factura " + DeFactura(fila);
    case Tabla::Cosa::Vencimiento:
      return una + " " + FechaDicha(fila.Detalle) + " de la factura " + DeFactura(fila);
    case Tabla::Cosa::Prevision:
      return una + " del concepto " + fila.NConcepto;
    case Tabla::Cosa::Apunte:
      return una + " de " + MomentoDicho(fila.Detalle) + " del concepto " + fila.NConcepto;
  }
  return una;
}

std::string Recuento(const std::vector<Fila>& filas) {
  std::string texto;
  for (const Tabla& tabla : Tablas()) {
    const auto cuantas = std::ranges::count(filas, tabla.Nombre, &Fila::Tabla);
    if (cuantas == 0) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::to_string(cuantas) + " ";
    texto += cuantas == 1 ? tabla.Una : tabla.Varias;
  }
  return texto;
}

std::string Relacion(const std::vector<Fila>& filas, std::size_t hasta) {
  std::string texto;
  for (std::size_t i = 0; i < filas.size() && i < hasta; ++i) {
    texto += "\n· " + Nombre(filas[i]);
    if (!filas[i].Motivo.empty()) texto += ": " + filas[i].Motivo;
  }
  if (filas.size() > hasta) {
    texto += "\n… y " + std::to_string(filas.size() - hasta) + " más";
  }
  return texto;
}

}  // namespace salvaguarda
