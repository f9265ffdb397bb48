#include "muestra/facturas.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "muestra/azar.h"
#include "muestra/conceptos.h"

namespace muestra {
namespace {

using services::FechaHora;

constexpr int kMesesAtras = 15;
constexpr int kPorMesPasado = 64;
/// From the current month on.
constexpr std::array kPorMesVenidero = {16, 35, 33, 31, 29, 27, 25, 22, 22};

void AnadirFechas(std::vector<FechaHora>& fechas, FechaHora primero, int cuantas, Azar& azar) {
  const auto dia = services::Descomponer(primero);
  const int ultimo = services::DiasDelMes(dia.Anio, dia.Mes) - 1;
  for (int i = 0; i < cuantas; ++i) fechas.push_back({primero.Dias + azar.Entre(0, ultimo)});
}

std::vector<FechaHora> Fechas(FechaHora hoy, Azar& azar) {
  std::vector<FechaHora> fechas;
  for (int mes = -kMesesAtras; mes < 0; ++mes) {
    AnadirFechas(fechas, PrimeroDeMes(hoy, mes), kPorMesPasado, azar);
  }
  int mes = 0;
  for (const int cuantas : kPorMesVenidero) {
    AnadirFechas(fechas, PrimeroDeMes(hoy, mes++), cuantas, azar);
  }
  std::ranges::sort(fechas);
  return fechas;
}

/// Suppliers number their invoices each in its own way, and never use a number twice.
std::string Numerar(std::size_t proveedor, int anio, int orden) {
  std::string numero = std::to_string(orden);
  const std::string ancho = std::string(4 - std::min<std::size_t>(4, numero.size()), '0') + numero;
  switch (proveedor % 4) {
    case 0:
      return "A-" + ancho;
    case 1:
      return std::to_string(anio) + "/" + ancho;
    case 2:
      return "F" + ancho;
    default:
      return numero;
  }
}

int PorcentajeDe(char tipo) {
  constexpr std::string_view tipos = "0123";
  constexpr std::array porcentajes = {0, 16, 7, 4};
  return porcentajes.at(tipos.find(tipo));
}

Centimos Porcentaje(Centimos importe, int porcentaje) {
  return (importe * porcentaje + 50) / 100;
}

/// Small amounts are commoner than large ones.
Centimos Cuantia(const Perfil& perfil, Azar& azar) {
  const Centimos u = azar.Entre(0, 999);
  const Centimos minimo = perfil.Minimo * Centimos{100};
  return minimo + (perfil.Maximo * Centimos{100} - minimo) * u * u / 1'000'000 + azar.Entre(0, 99);
}

void PonerImportes(Factura& factura, const Perfil& perfil, Azar& azar) {
  for (const char tipo : perfil.Tipos) {
    const Centimos importe = Cuantia(perfil, azar);
    const bool lleva = azar.DeCada100(60) || factura.Bases.empty();
    if (!lleva) continue;
    factura.Bases.push_back({tipo, importe, Porcentaje(importe, PorcentajeDe(tipo))});
    factura.Total += importe + factura.Bases.back().Iva;
  }
  if (perfil.Retencion == 0) return;
  const Centimos base = factura.Bases.front().Importe;
  factura.Retencion = {base, perfil.Retencion, Porcentaje(base, perfil.Retencion)};
  factura.Total -= factura.Retencion.Importe;
}

Plazo ElegirPlazo(Azar& azar) {
  constexpr std::array primeros = {15, 30, 30, 60};
  constexpr std::array cadencias = {15, 30, 30, 30, 60};
  const bool aplazado = azar.DeCada100(11);
  const auto primero = static_cast<std::size_t>(azar.Entre(0, primeros.size() - 1));
  const auto cadencia = static_cast<std::size_t>(azar.Entre(0, cadencias.size() - 1));
  const int recibos = azar.Entre(1, 6);
  if (!aplazado) return {};
  return {true, recibos, primeros.at(primero), cadencias.at(cadencia)};
}

/// Equal receipts, rounded; the last one takes the difference.
void Repartir(Factura& factura, int diasALaVista) {
  const Plazo& plazo = factura.Plazo;
  const Centimos parte = (factura.Total * 2 + plazo.Recibos) / (plazo.Recibos * Centimos{2});
  int vence = factura.Fecha.Dias + (plazo.Aplazado ? plazo.Dias1Vto : diasALaVista);
  for (int i = 1; i <= plazo.Recibos; ++i, vence += plazo.Cadencia) {
    const bool ultimo = i == plazo.Recibos;
    factura.Recibos.push_back(
        {{vence}, ultimo ? factura.Total - parte * (plazo.Recibos - 1) : parte, Centimos{0}, {}});
  }
}

struct Habitos {
  int Pagados;  ///< of a hundred receipts
  int AMedias;
};

Habitos HabitosDe(int diasVencido) {
  if (diasVencido > 60) return {96, 2};
  return diasVencido >= 0 ? Habitos{70, 12} : Habitos{3, 2};
}

void Pagar(Recibo& recibo, FechaHora factura, FechaHora hoy, Azar& azar) {
  const int suerte = azar.Entre(0, 99);
  const int retraso = azar.Entre(-2, 8);
  const int parte = azar.Entre(20, 80);
  const bool antiguo = azar.DeCada100(15);
  const Habitos habitos = HabitosDe(hoy.Dias - recibo.Vence.Dias);
  if (factura > hoy || suerte >= habitos.Pagados + habitos.AMedias) {
    if (antiguo) recibo.Pagado.reset();
    return;
  }
  recibo.Pagado = suerte < habitos.Pagados ? recibo.Importe
                                           : std::max<Centimos>(1, recibo.Importe * parte / 100);
  recibo.Pago = std::clamp(FechaHora{recibo.Vence.Dias + retraso}, factura, hoy);
}

std::vector<const Concepto*> QueFacturan() {
  std::vector<const Concepto*> elegidos;
  for (const Concepto& concepto : Conceptos()) {
    if (concepto.Facturas) elegidos.push_back(&concepto);
  }
  return elegidos;
}

}  // namespace

std::vector<Factura> Facturas(FechaHora hoy) {
  Azar azar(20050301);
  // Apart, so that what is paid by a day changes nothing else.
  Azar pagos(20050302);
  const auto conceptos = QueFacturan();
  std::map<std::size_t, int> contadores;
  std::vector<Factura> facturas;
  for (const FechaHora fecha : Fechas({hoy.Dias}, azar)) {
    const auto cual =
        static_cast<std::size_t>(azar.Entre(0, static_cast<int>(conceptos.size()) - 1));
    Factura factura;
    factura.Concepto = conceptos[cual];
    factura.Fecha = fecha;
    factura.Numero = Numerar(cual, services::Descomponer(fecha).Anio, ++contadores[cual]);
    PonerImportes(factura, *factura.Concepto->Facturas, azar);
    factura.Plazo = ElegirPlazo(azar);
    Repartir(factura, azar.Entre(0, 12));
    for (Recibo& recibo : factura.Recibos) Pagar(recibo, fecha, {hoy.Dias}, pagos);
    facturas.push_back(std::move(factura));
  }
  return facturas;
}

}  // namespace muestra
