#pragma once

#include <string>

namespace list {

/// The amounts of a receipt as the cells of its row show them: under the mask, `Pagado` maybe
/// empty.
struct Recibo {
  std::string Importe;
  std::string Pagado;
};

/// What is said of an amount above that of its receipt, wherever it is typed.
inline constexpr const char* kSuperaElRecibo =
    "El Importe Pagado no Puede ser mayor que el importe del recibo";

/// What a payment makes of the row of its receipt.
struct Pago {
  std::string Pagado;    ///< text of the cell
  bool Marca = false;    ///< paid in full: the check mark shows
  double Pendiente = 0;  ///< by how much the pending total changes
};

/// A typed amount under its mask; a lone comma is as good as a zero. Throws 13 for a text that is
/// no amount.
[[nodiscard]] std::string Enmascarado(const std::string& tecleado);
/// An amount is typed: it is rounded by the mask; the receipt's own amount pays it in full, and no
/// text at all is "0". Throws 13 for a text that is no amount, such as a negative one.
[[nodiscard]] Pago Entrar(const Recibo& recibo, const std::string& tecleado);
/// The same as the editor is closed on it: the cell then shows the amount under the mask, "0,00"
/// for no text, also where the receipt's own amount is empty.
[[nodiscard]] Pago EntrarAlCerrar(const Recibo& recibo, const std::string& tecleado);
/// The payment is taken back. What was stored before, `antes`, comes back when it was a part; one
/// in full, or none, leaves "0,00".
[[nodiscard]] Pago Devolver(const Recibo& recibo, const Recibo& antes);
/// Whether a typed amount, not yet rounded, is more than the receipt's. Throws 13 as well.
[[nodiscard]] bool Supera(const Recibo& recibo, const std::string& tecleado);

}  // namespace list
