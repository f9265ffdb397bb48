#pragma once

#include <functional>
#include <span>

#include "entry/campos.h"
#include "entry/comunes.h"
#include "entry/desglose.h"
#include "entry/edicion_vencimiento.h"
#include "entry/terminos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// The amounts of the invoice: its total, the bases and VAT of three rates, the exempt part and the
/// withholding. Each figure is checked when its field is left; a wrong one stays in its field, and
/// the next leaving lets it through.
class Importes {
 public:
  Importes(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
           EdicionVencimiento& edicion, Terminos& terminos);

  /// The fields of a rate on or off: 16, 7, 4, 0 for the exempt part, 15 for the withholding.
  void Chk(int Tipo, bool Estado);
  /// What bases, VAT and exempt part add up to, less the withholding.
  [[nodiscard]] double TotalCalculado() const;

 private:
  void UnirCajas();
  void UnirTeclas();
  /// A field that is checked loses the focus. Empty it empties what derives from it, null for
  /// nothing; otherwise `cuadra` checks it, unless this leaving is let through.
  void Dejar(services::TextBox& base, services::TextBox* derivado,
             const std::function<bool()>& cuadra);
  [[nodiscard]] bool ComprobarBase(const Tramo& tramo);
  /// Whether all that the total bears is in the base of that rate.
  [[nodiscard]] bool EsLaUltima(const Tramo& tramo) const;
  [[nodiscard]] bool ComprobarExento();
  [[nodiscard]] bool ComprobarBaseIrpf();
  void TxtTipoIRPF_Change();

  void TxtIFra_GotFocus();
  void TxtIFra_KeyPress(int& tecla);
  void TxtIFra_LostFocus();
  void TotalModificado();
  void PrimerTotal();
  void RepartirTotal();
  [[nodiscard]] double LoQueDejan(std::span<const Tramo> menores) const;
  void SepararEn(const Tramo& primero, double resto);
  static void Poner(const Tramo& tramo, const BaseEIva& partidas);

  [[nodiscard]] double Total() const;
  /// Whether the box of a rate is on.
  [[nodiscard]] bool HayTipos() const;
  /// Bases, VAT and exempt part.
  [[nodiscard]] double Partidas() const;

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  EdicionVencimiento& edicion_;
  Terminos& terminos_;
};

}  // namespace entry
