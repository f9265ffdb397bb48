#include "muestra/caja.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

#include "muestra/azar.h"
#include "muestra/conceptos.h"

namespace muestra {
namespace {

using services::FechaHora;

constexpr Centimos kMayorEnCaja = 200'00;
constexpr int kSinFacturar = 45;
constexpr int kSemanasAtras = 6;
constexpr int kApertura = 9 * 3600;
constexpr int kCierre = 20 * 3600;

constexpr std::array<std::string_view, 2> kSucursales = {"01", "02"};
constexpr std::array<std::string_view, 2> kUsuarios = {"CARMEN", "IÑAKI"};
constexpr std::array<std::string_view, 6> kMotivos = {
    "Pagado en mano",   "Falta el tique",           "Urgente, lo pidió el almacén",
    "Entrega a cuenta", "Para la reunión de otoño", "",
};

/// Keeps no two entries of a branch and concept on the same second.
class Libro {
 public:
  explicit Libro(Azar& azar) : azar_(azar) {}

  Apunte Nuevo(std::string_view concepto, int dia, Centimos importe) {
    const auto sucursal = static_cast<std::size_t>(azar_.Entre(0, 1));
    FechaHora momento{dia, azar_.Entre(kApertura, kCierre)};
    while (!usados_.emplace(sucursal, momento, concepto).second) ++momento.Segundos;
    const auto motivo = static_cast<std::size_t>(azar_.Entre(0, kMotivos.size() - 1));
    return {kSucursales.at(sucursal),         momento, concepto, importe,
            std::string(kMotivos.at(motivo)), {},      {},       kUsuarios.at(sucursal)};
  }

 private:
  Azar& azar_;
  std::set<std::tuple<std::size_t, FechaHora, std::string_view>> usados_;
};

bool PagadaEnCaja(const Factura& factura) {
  if (factura.Plazo.Aplazado || factura.Total > kMayorEnCaja) return false;
  const Recibo& recibo = factura.Recibos.front();
  return recibo.Pagado == recibo.Importe;
}

void AnadirDe(const Factura& factura, std::vector<Apunte>& apuntes, Libro& libro, Azar& azar) {
  const int cuantos = azar.Entre(1, 3);
  Centimos resto = factura.Total;
  for (int quedan = cuantos; quedan > 0; --quedan) {
    const Centimos importe = quedan == 1 ? resto : resto * azar.Entre(20, 60) / 100;
    resto -= importe;
    const int dia = factura.Fecha.Dias - azar.Entre(0, 5);
    Apunte apunte = libro.Nuevo(factura.Concepto->Codigo, dia, importe);
    apunte.Factura = factura.Numero;
    apunte.Anio = services::Descomponer(factura.Fecha).Anio;
    apuntes.push_back(std::move(apunte));
  }
}

}  // namespace

std::vector<Apunte> Caja(std::span<const Factura> facturas, FechaHora hoy) {
  Azar azar(20050303);
  Libro libro(azar);
  std::vector<Apunte> apuntes;
  for (const Factura& factura : facturas) {
    if (PagadaEnCaja(factura)) AnadirDe(factura, apuntes, libro, azar);
  }
  constexpr std::array<std::string_view, 8> conceptos = {"102", "103", "119", "202",
                                                         "212", "213", "404", "503"};
  for (int i = 0; i < kSinFacturar; ++i) {
    const auto cual = static_cast<std::size_t>(azar.Entre(0, conceptos.size() - 1));
    const int dia = hoy.Dias - azar.Entre(0, kSemanasAtras * 7);
    Apunte apunte = libro.Nuevo(conceptos.at(cual), dia, azar.Entre(2'50, 95'00));
    // Whoever keeps the till leaves the number out, or passes over it with nothing typed: all those
    // of one concept alike, or they couldn't be invoiced together with the other concepts.
    if (cual % 2 == 0) apunte.Factura = "";
    apuntes.push_back(std::move(apunte));
  }
  return apuntes;
}

}  // namespace muestra
