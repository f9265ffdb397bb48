#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/controles.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace list {

/// Payments entered in the list itself: the events of `MSFPagos` and the editor `TxtMsf`, which
/// lies over the `Pagado` cell of the current row while an amount is typed. Nothing of it reaches a
/// table: all stays in the cells.
///
/// The grid raises its cell events from inside the moves made here, also re-entrantly; the guards
/// of `RejillaPagos` tell them apart.
class EdicionPagado {
 public:
  /// All events do nothing while `PicNuevo` is visible. `BotonModificar` is clicked for a forecast
  /// line that is double clicked.
  EdicionPagado(services::PictureBox& panel, services::Sesion& sesion, RejillaPagos& rejilla,
                const services::Widget& PicNuevo, const services::Widget& BotonModificar);

  services::TextBox TxtMsf;

  /// Lays the editor over the current cell when it is the `Pagado` of a row that can be paid;
  /// otherwise empties and hides it.
  void AbrirEdicionPagado();
  /// The same, by a key, which is not looked at.
  void ActivarEdicionPagado(int tecla);
  /// Takes the amount of an open editor into the row and hides it. A text that is no amount throws
  /// 13, and row and editor stay as they are.
  void CerrarEdicionPago();
  /// How many payments of the list are in its cells alone, with the amount in an open editor as
  /// closing it would take it in; one that couldn't be taken in doesn't count.
  [[nodiscard]] int PagosSinGrabar() const;
  /// The row of a payment that isn't saved yet and is above its due date, the open editor's among
  /// them; 0 for none.
  [[nodiscard]] int PagoExcesivo() const;
  /// Whether a double click on the current cell opens the entry panel.
  [[nodiscard]] bool AbreElPanel() const;
  /// Empties and hides the editor; what was typed is dropped. The focus that it had goes to the
  /// list, for who works by keyboard.
  void Ocultar();

 private:
  void MSFPagos_Click();
  void MSFPagos_DblClick();
  void MSFPagos_RowColChange();
  void MSFPagos_LeaveCell();
  void TxtMsf_KeyDown(int& tecla);
  void TxtMsf_KeyPress(int& tecla);

  void PagarEntera(int fila);
  void QuitarPago(int fila);
  void ElegirFila();
  void ComprometerImporte();
  void MoverAMarca();
  /// What is no amount has to fail before anything moves, or the next try would find another cell.
  void ExigirImporte() const;
  void PasarALaSiguiente();
  /// `direccion` is "Arr" or "Aba".
  void MoverFilaPago(std::string_view direccion);
  [[nodiscard]] int BuscarFilaPago(std::string_view direccion) const;

  /// What closing an open editor would leave in its cell; none for a text that is no amount.
  [[nodiscard]] std::optional<std::string> PagadoAlCerrar() const;
  [[nodiscard]] bool EnPagadoDePagable() const;
  [[nodiscard]] bool TieneFacturaYFecha(int fila) const;
  [[nodiscard]] bool SuperaElRecibo(int fila) const;
  void AvisarQueSupera();

  services::Sesion& sesion_;
  RejillaPagos& rejilla_;
  services::MSFlexGrid& MSFPagos_;
  const services::Widget& PicNuevo_;
  const services::Widget& BotonModificar_;
};

}  // namespace list
