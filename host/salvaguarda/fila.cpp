#include "salvaguarda/fila.h"

#include <algorithm>

#include "salvaguarda/tablas.h"
#include "sqlite/momento.h"

namespace salvaguarda {
namespace {

std::string DeFactura(const Fila& fila) {
  return fila.Factura + " de " + fila.Anio + " del concepto " + fila.NConcepto;
}

/// A stored date as users write it; any other text as it is.
std::string Fecha(const std::string& guardada) {
  const bool cifras = std::ranges::all_of(guardada, [](char c) { return c >= '0' && c <= '9'; });
  if (guardada.size() != 8 || !cifras) return guardada;
  return guardada.substr(6, 2) + "/" + guardada.substr(4, 2) + "/" + guardada.substr(0, 4);
}

/// A stored moment alike.
std::string Momento(const std::string& guardado) {
  const auto momento = sqlite::LeerMomento(guardado);
  return momento ? services::TextoDeFecha(*momento) : guardado;
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
      return una + " " + Fecha(fila.Detalle) + " de la factura " + DeFactura(fila);
    case Tabla::Cosa::Prevision:
      return una + " del concepto " + fila.NConcepto;
    case Tabla::Cosa::Apunte:
      return una + " de " + Momento(fila.Detalle) + " del concepto " + fila.NConcepto;
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
