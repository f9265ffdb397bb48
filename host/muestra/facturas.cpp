#include "muestra/facturas.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace muestra {
namespace {

using services::FechaHora;

constexpr int kDiasDeUnAnio = 365;
constexpr int kRetencion = 15;

/// Ties go away from zero.
Centimos PorCiento(Centimos importe, int tipo) {
  return (importe * tipo + 50) / 100;
}

FechaHora Mas(FechaHora dia, int dias) {
  return {dia.Dias + dias, 0};
}

std::string Numerar(const Concepto& concepto, int orden, int anio) {
  const std::string cifras = std::to_string(10000 + orden).substr(1);
  switch (concepto.Codigo % 3) {
    case 0:
      return std::to_string(anio) + "/" + cifras;
    case 1:
      return "F" + std::to_string(anio % 100) + "-" + cifras;
    default:
      return "A" + std::to_string(concepto.Codigo) + cifras;
  }
}

Base HacerBase(Centimos importe, int iva) {
  return {iva, importe, PorCiento(importe, iva)};
}

void PonerImportes(Factura& factura, Azar& azar) {
  const Concepto& concepto = *factura.De;
  const Centimos euros = Centimos{concepto.Importe} * azar.Entre(55, 160);
  const Centimos importe = euros + azar.Menos(100);
  if (concepto.Tipo == Clase::Exento) {
    factura.Exento = importe;
    return;
  }
  factura.Bases.push_back(HacerBase(importe, concepto.Iva));
  if (concepto.Tipo == Clase::Mercancia && azar.Ciento(25)) {
    factura.Bases.push_back(HacerBase(importe / 3 + azar.Menos(100), concepto.Iva == 16 ? 7 : 16));
  }
  if (concepto.Tipo == Clase::Mercancia && azar.Ciento(8)) factura.Exento = azar.Entre(500, 9000);
  if (concepto.Tipo != Clase::Profesional) return;
  factura.BaseRetenida = importe;
  factura.TipoRetencion = kRetencion;
  factura.Retencion = PorCiento(importe, kRetencion);
}

void PonerPlazos(Factura& factura, Azar& azar) {
  factura.Aplazada = factura.De->Tipo == Clase::Mercancia && azar.Ciento(70);
  factura.Dias1Vto = factura.Aplazada ? 30 * azar.Entre(1, 2) : azar.Entre(0, 15);
  factura.Cadencia = factura.Aplazada ? 30 : 0;
}

void Repartir(Factura& factura, Azar& azar) {
  const int cuantos = factura.Aplazada ? azar.Entre(1, 4) : 1;
  const Centimos total = factura.Total();
  for (int i = 0; i < cuantos; ++i) {
    const Centimos parte = total / cuantos;
    factura.Recibos.push_back(
        {.Vencimiento = Mas(factura.Fecha, factura.Dias1Vto + i * factura.Cadencia),
         .Importe = i + 1 < cuantos ? parte : total - parte * (cuantos - 1),
         .Pagado = 0,
         .Pago = {}});
  }
}

/// What fell due long ago is paid, what did lately is so here and there, and hardly anything is
/// before its day.
void Pagar(Recibo& recibo, FechaHora hoy, Azar& azar) {
  const int dias = hoy.Dias - recibo.Vencimiento.Dias;
  const int pagados = dias > 45 ? 97 : dias > 0 ? 60 : dias > -20 ? 12 : 0;
  const int aCuenta = dias > 45 ? 1 : dias > -20 ? 12 : 3;
  const int suerte = azar.Menos(100);
  if (suerte < pagados) {
    recibo.Pagado = recibo.Importe;
  } else if (suerte < pagados + aCuenta) {
    recibo.Pagado = std::max<Centimos>(recibo.Importe * azar.Entre(2, 8) / 10, 1);
  } else {
    return;
  }
  recibo.Pago = Mas(recibo.Vencimiento, std::min(azar.Entre(-3, 6), dias));
}

}  // namespace

Centimos Factura::Total() const {
  return std::accumulate(
      Bases.begin(), Bases.end(), Exento - Retencion,
      [](Centimos suma, const Base& base) { return suma + base.Importe + base.Cuota; });
}

std::vector<Factura> Facturas(int cuantas, FechaHora hoy, Azar& azar) {
  std::vector<Factura> facturas(static_cast<std::size_t>(cuantas));
  for (Factura& factura : facturas) {
    factura.De = &azar.De(Conceptos());
    factura.Fecha = Mas(hoy, azar.Entre(-kDiasDeUnAnio, kDiasDeUnAnio));
  }
  std::stable_sort(facturas.begin(), facturas.end(),
                   [](const Factura& a, const Factura& b) { return a.Fecha < b.Fecha; });
  std::map<int, int> ordenes;
  for (Factura& factura : facturas) {
    const int anio = services::Descomponer(factura.Fecha).Anio;
    factura.Numero = Numerar(*factura.De, ++ordenes[factura.De->Codigo], anio);
    PonerImportes(factura, azar);
    PonerPlazos(factura, azar);
    Repartir(factura, azar);
    for (Recibo& recibo : factura.Recibos) Pagar(recibo, hoy, azar);
  }
  return facturas;
}

}  // namespace muestra
