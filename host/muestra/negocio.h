#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "valores/fecha.h"

// The sample business as plain values, before any of it is written.

namespace muestra {

/// Amounts are whole cents, so that they add up.
using Centimos = std::int64_t;

/// What an invoice of a concept looks like.
struct Perfil {
  /// Its VAT rates by their code: "1" 16%, "2" 7%, "3" 4%, "0" exempt. The first is on every
  /// invoice, the rest on some.
  std::string_view Tipos;
  int Retencion = 0;  ///< percent withheld; 0 for none
  int Minimo = 0;     ///< euros of a base
  int Maximo = 0;
};

struct Concepto {
  std::string_view Codigo;
  std::string_view Descripcion;
  const Perfil* Facturas;  ///< null for one that only has forecasts
};

struct Base {
  char Tipo = '0';
  Centimos Importe = 0;  ///< taxable base, or the exempt amount
  Centimos Iva = 0;
};

struct Recibo {
  services::FechaHora Vence;
  Centimos Importe = 0;
  std::optional<Centimos> Pagado;  ///< none in rows of before payments were kept
  std::optional<services::FechaHora> Pago;
};

struct Plazo {
  bool Aplazado = false;
  int Recibos = 1;
  int Dias1Vto = 0;
  int Cadencia = 0;
};

struct Retencion {
  Centimos Base = 0;
  int Tipo = 0;
  Centimos Importe = 0;
};

struct Factura {
  const muestra::Concepto* Concepto = nullptr;
  std::string Numero;
  services::FechaHora Fecha;
  std::vector<muestra::Base> Bases;
  muestra::Retencion Retencion;
  Centimos Total = 0;
  muestra::Plazo Plazo;
  std::vector<muestra::Recibo> Recibos;
};

struct Prevision {
  std::string_view Concepto;
  services::FechaHora Primera;
  int Cada = 0;
  int Tipo = 0;  ///< 1 days, 2 months, 3 years
  Centimos Importe = 0;
};

struct Apunte {
  std::string_view Sucursal;
  services::FechaHora Momento;
  std::string_view Concepto;
  Centimos Importe = 0;
  std::string Observaciones;
  /// Number and year of its invoice; no number, or an empty one, where there is none yet.
  std::optional<std::string> Factura;
  std::optional<int> Anio;
  std::string_view Usuario;
};

/// The first day of the month that is `meses` after that of `dia`.
[[nodiscard]] services::FechaHora PrimeroDeMes(services::FechaHora dia, int meses);

}  // namespace muestra
