#include "salvaguarda/relacion.h"

#include "salvaguarda/dicho.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

/// What it is, without its table's word and its concept.
std::string Cual(const Tabla& tabla, const Fila& fila) {
  std::string factura = fila.Factura + " de " + fila.Anio + " ";
  switch (tabla.Que) {
    case Tabla::Cosa::Factura:
      return factura;
    case Tabla::Cosa::Base:
      return fila.Detalle + " de la factura " + factura;
    case Tabla::Cosa::Vencimiento:
      return FechaDicha(fila.Detalle) + " de la factura " + factura;
    case Tabla::Cosa::Prevision:
      return "";
    case Tabla::Cosa::Apunte:
      return "de " + MomentoDicho(fila.Detalle) + " ";
  }
  return "";
}

std::string Linea(const Fila& fila, const Conceptos& conceptos) {
  return "\n· " + Nombre(fila, conceptos) + (fila.Motivo.empty() ? "" : ": " + fila.Motivo);
}

}  // namespace

std::string Nombre(const Fila& fila, const Conceptos& conceptos) {
  const Tabla* tabla = BuscarTabla(fila.Tabla);
  if (tabla == nullptr) return fila.Tabla;
  return std::string(tabla->Una) + " " + Cual(*tabla, fila) + conceptos.Llamar(fila.NConcepto) +
         (fila.Importe.empty() ? "" : ", por " + fila.Importe);
}

Relacion Relatar(const std::vector<Fila>& filas, const Conceptos& conceptos, Tope hasta) {
  std::string texto;
  std::size_t dichas = 0;
  for (; dichas < filas.size() && dichas < hasta.Filas; ++dichas) {
    const std::string linea = Linea(filas[dichas], conceptos);
    if (dichas > 0 && texto.size() + linea.size() > hasta.Bytes) break;
    texto += linea;
  }
  const std::size_t faltan = filas.size() - dichas;
  if (faltan > 0) texto += "\n… y " + std::to_string(faltan) + " más";
  return {texto, faltan};
}

}  // namespace salvaguarda
