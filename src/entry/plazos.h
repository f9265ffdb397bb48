#pragma once

#include <functional>
#include <string>

namespace entry {

/// How a total is paid in several receipts.
struct Plazos {
  double Recibos = 0;        ///< how many
  double Dias = 0;           ///< from the invoice's date to the first due date
  double Cadencia = 0;       ///< days from each due date to the next
  std::string FechaFactura;  ///< display form
  double Total = 0;
  double PagadoEnCaja = 0;  ///< spread over the receipts as paid; 0 or less for none
};

/// A receipt as the cells of its row show it.
struct ReciboNuevo {
  std::string Fecha;
  std::string Importe;
  std::string Pagado;

  bool operator==(const ReciboNuevo&) const = default;
};

/// Calls `visitar` with each receipt, the first being 1. All bear the same share of the total,
/// rounded to cents, and the last one what that leaves; the paid share has no such correction. Each
/// due date is so many plain days after the one before, whatever the months' lengths.
///
/// Throws 11 for no receipts and 6 for more than 999, 13 when the invoice's date is none, and 5
/// where the calendar ends: the receipts up to there have been visited.
void RepartirEnRecibos(const Plazos& plazos,
                       const std::function<void(int, const ReciboNuevo&)>& visitar);

/// The single receipt of a total paid at sight; its date is taken as it stands.
[[nodiscard]] ReciboNuevo ReciboALaVista(const std::string& fecha, const std::string& total,
                                         double pagadoEnCaja);

}  // namespace entry
