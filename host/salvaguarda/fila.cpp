#include "salvaguarda/fila.h"

#include <algorithm>
#include <array>

#include "sqlite/momento.h"

namespace salvaguarda {
namespace {

struct NombreDeTabla {
  std::string_view Tabla;
  std::string_view Una;
  std::string_view Varias;
};

constexpr std::array kNombres{
    NombreDeTabla{"ProvFacturas", "factura", "facturas"},
    NombreDeTabla{"ProvBasesIva", "base de IVA", "bases de IVA"},
    NombreDeTabla{"ProvVencimientos", "vencimiento", "vencimientos"},
    NombreDeTabla{"ProvPrevisionPagos", "previsión", "previsiones"},
    NombreDeTabla{"CajaPagos", "apunte de caja", "apuntes de caja"},
};

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
  if (fila.Tabla == "ProvPrevisionPagos") return "previsión del concepto " + fila.NConcepto;
  if (fila.Tabla == "CajaPagos") {
    return "apunte de caja de " + Momento(fila.Detalle) + " del concepto " + fila.NConcepto;
  }
  if (fila.Tabla == "ProvVencimientos") {
    return "vencimiento " + Fecha(fila.Detalle) + " de la factura " + DeFactura(fila);
  }
  if (fila.Tabla == "ProvBasesIva") {
    return "base de IVA " + fila.Detalle + " de la factura " + DeFactura(fila);
  }
  return "factura " + DeFactura(fila);
}

std::string Recuento(const std::vector<Fila>& filas) {
  std::string texto;
  for (const NombreDeTabla& nombre : kNombres) {
    const auto cuantas = std::ranges::count(filas, nombre.Tabla, &Fila::Tabla);
    if (cuantas == 0) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::to_string(cuantas) + " ";
    texto += cuantas == 1 ? nombre.Una : nombre.Varias;
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
