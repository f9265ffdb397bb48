#include "salvaguarda/relacion.h"

#include <map>

#include "salvaguarda/dicho.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

/// A VAT rate, by what stands for it in its table.
std::string TipoDicho(const std::string& tipo) {
  if (tipo == "0") return "exenta";
  if (tipo == "1") return "del 16%";
  if (tipo == "2") return "del 7%";
  if (tipo == "3") return "del 4%";
  return tipo;
}

/// What it is, without its invoice and its concept.
std::string Cual(const Tabla& tabla, const Fila& fila) {
  std::string una(tabla.Una);
  switch (tabla.Que) {
    case Tabla::Cosa::Factura:
      return una + " " + fila.Factura + " de " + fila.Anio;
    case Tabla::Cosa::Base:
      return una + " " + TipoDicho(fila.Detalle);
    case Tabla::Cosa::Vencimiento:
      return una + " " + FechaDicha(fila.Detalle);
    case Tabla::Cosa::Prevision:
      return una;
    case Tabla::Cosa::Apunte:
      return una + " de " + MomentoDicho(fila.Detalle);
  }
  return una;
}

bool EsDeUnaFactura(const Tabla& tabla) {
  return tabla.Que == Tabla::Cosa::Base || tabla.Que == Tabla::Cosa::Vencimiento;
}

std::string ConSuImporte(const Fila& fila) {
  return fila.Importe.empty() ? "" : ", por " + fila.Importe;
}

/// The bases and due dates of each invoice that is there itself, where there is the same to say of
/// them. They are told in its line.
class ConSuFactura {
 public:
  explicit ConSuFactura(const std::vector<Fila>& filas) {
    for (const Fila& fila : filas) {
      if (fila.Tabla == kFacturas) suyas_.emplace(fila, "");
    }
  }
  /// Whether it is one of them.
  bool Tomar(const Fila& fila) {
    const Tabla* tabla = BuscarTabla(fila.Tabla);
    if (tabla == nullptr || !EsDeUnaFactura(*tabla)) return false;
    const auto factura =
        suyas_.find({std::string(kFacturas), fila.NConcepto, fila.Factura, fila.Anio});
    if (factura == suyas_.end() || factura->first.Motivo != fila.Motivo) return false;
    std::string& dichas = factura->second;
    dichas += (dichas.empty() ? "" : "; ") + Cual(*tabla, fila) + ConSuImporte(fila);
    return true;
  }
  [[nodiscard]] std::string De(const Fila& fila) const {
    const auto factura = suyas_.find(fila);
    return factura == suyas_.end() || factura->second.empty() ? "" : " (" + factura->second + ")";
  }

 private:
  static inline const std::string_view kFacturas = TablasDeFactura().front().Nombre;
  std::map<Fila, std::string, PorSuClave> suyas_;
};

std::string Linea(const Fila& fila, const ConSuFactura& juntas, const Conceptos& conceptos) {
  return "\n· " + Nombre(fila, conceptos) + juntas.De(fila) +
         (fila.Motivo.empty() ? "" : ": " + fila.Motivo);
}

}  // namespace

std::string Nombre(const Fila& fila, const Conceptos& conceptos) {
  const Tabla* tabla = BuscarTabla(fila.Tabla);
  if (tabla == nullptr) return fila.Tabla;
  const std::string factura = " de la factura " + fila.Factura + " de " + fila.Anio;
  return Cual(*tabla, fila) + (EsDeUnaFactura(*tabla) ? factura : "") + " " +
         conceptos.Llamar(fila.NConcepto) + ConSuImporte(fila);
}

Relacion Relatar(const std::vector<Fila>& filas, const Conceptos& conceptos, Tope hasta) {
  ConSuFactura juntas(filas);
  std::vector<const Fila*> porDecir;
  for (const Fila& fila : filas) {
    if (!juntas.Tomar(fila)) porDecir.push_back(&fila);
  }
  std::string texto;
  std::size_t dichas = 0;
  for (; dichas < porDecir.size() && dichas < hasta.Filas; ++dichas) {
    const std::string linea = Linea(*porDecir[dichas], juntas, conceptos);
    if (dichas > 0 && texto.size() + linea.size() > hasta.Bytes) break;
    texto += linea;
  }
  const std::size_t faltan = porDecir.size() - dichas;
  if (faltan > 0) texto += "\n… y " + std::to_string(faltan) + " más";
  return {texto, faltan};
}

}  // namespace salvaguarda
