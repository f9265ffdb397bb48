#pragma once

#include <string>

#include "entry/campos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// The statement that reads the forecast of a concept.
[[nodiscard]] std::string SentenciaDePrevision(const std::string& concepto);

/// The forecast of a concept on the panel: every so many days, months or years an amount is
/// expected, from a date on. A concept has one at most; it reaches the table at the acceptance
/// only.
class Prevision {
 public:
  Prevision(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista);

  /// The block on, with the concept's forecast or what the invoice proposes, or off and empty.
  void ActivarPrevision(bool Estado);
  /// Fills it from the working table, for the concept of the list's current row.
  void CargarPrevision();
  /// Writes it there. A failure is told, and whoever accepts doesn't learn of it.
  void GrabarPrevision();

 private:
  void UnirTeclas();
  void CboPlazo_LostFocus();
  void TxtDesde_LostFocus();
  [[nodiscard]] bool FechaDesdeValida();
  void ProponerFecha();

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
};

}  // namespace entry
