#pragma once

#include <array>
#include <functional>

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
  /// Bases, VAT and exempt part less the withholding, into `TotalCalculado`.
  void CalcularTotal();

 private:
  /// A rate as the panel shows it.
  struct Fila {
    services::CheckBox& Caja;
    services::TextBox& Base;
    services::TextBox& Iva;
    TipoIva Tipo;
    const char* Incorrecta;
    /// The boxes that keep the last check from being made.
    std::array<const services::CheckBox*, 3> Otras;
  };
  [[nodiscard]] std::array<Fila, 3> Filas();

  void UnirCajas();
  void UnirTecleo();
  void Unir(services::TextBox& campo, Tecleo tecleo,
            std::initializer_list<services::Widget*> cadena);

  /// A field that is checked loses the focus. Empty it empties what derives from it, null for
  /// nothing; otherwise `cuadra` checks it, unless this leaving is let through.
  void Dejar(services::TextBox& base, services::TextBox* derivado,
             const std::function<bool()>& cuadra);
  [[nodiscard]] bool ComprobarBase(const Fila& fila);
  [[nodiscard]] bool ComprobarExento();
  [[nodiscard]] bool ComprobarBaseIrpf();
  void TxtTipoIRPF_Change();

  void TxtIFra_GotFocus();
  void TxtIFra_KeyPress(int& tecla);
  void TxtIFra_LostFocus();
  void TotalModificado();
  void PrimerTotal();
  void RepartirTotal();
  void SepararEnLaPrimera();

  /// Shows the message, puts the focus there, and says that the check failed.
  bool Rechazar(const char* motivo, services::TextBox& campo);
  [[nodiscard]] double Total() const;
  /// Bases, VAT and exempt part.
  [[nodiscard]] double Partidas() const;

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  EdicionVencimiento& edicion_;
  Terminos& terminos_;
};

}  // namespace entry
