#pragma once

#include <string_view>

#include "entry/campos.h"
#include "entry/vencimientos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// Receipts edited in their grid: the events of `MSFVencimientos` and its editor `TxtMsf2`, which
/// lies over the amount or the `Pagado` of the current row. The small twin of
/// `list::EdicionPagado`; it keeps no total.
class EdicionVencimiento {
 public:
  EdicionVencimiento(Campos& campos, services::Sesion& sesion, Vencimientos& vencimientos,
                     const list::RejillaPagos& lista);

  /// Takes the text of an open editor into the current cell and hides it. A text that is no amount
  /// throws 13, and cell and editor stay as they are.
  void CerrarEdicionVencimiento();

 private:
  /// Lays the editor over the current cell when it is the amount or the `Pagado` of a receipt;
  /// otherwise empties and hides it.
  void AbrirEdicionVencimiento();
  /// The same, by a key, which is not looked at.
  void ActivarEdicionVencimiento(int tecla);
  /// Empties and hides the editor; what was typed is dropped.
  void Ocultar();

  void MSFVencimientos_Click();
  void MSFVencimientos_RowColChange();
  void MSFVencimientos_LeaveCell();
  void TxtMsf2_KeyDown(int& tecla);
  void TxtMsf2_KeyPress(int& tecla);

  void PagarEntero(int fila);
  void QuitarPago(int fila);
  void ComprometerImporte();
  void MoverAMarca();
  void TomarEnSuCelda();
  void Aceptar();
  /// `direccion` is "Arr" or "Aba".
  void MoverFilaVencimiento(std::string_view direccion);
  [[nodiscard]] int BuscarFilaVencimiento(std::string_view direccion) const;
  /// Whether what is typed as paid is more than the receipt.
  [[nodiscard]] bool PagaDeMas() const;
  void AvisarQueSupera();

  services::MSFlexGrid& rejilla_;
  services::TextBox& TxtMsf2_;
  services::Sesion& sesion_;
  Vencimientos& vencimientos_;
  const list::RejillaPagos& lista_;
  /// True while code moves the current column to the mark, so that the amount typed is committed.
  bool MoviendoColumnaVto_ = false;
};

}  // namespace entry
