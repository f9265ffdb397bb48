#pragma once

#include <string>
#include <vector>

#include "forms/controles.h"
#include "forms/msflexgrid.h"
#include "list/linea.h"
#include "list/pago.h"
#include "list/pagos_sin_grabar.h"
#include "services/sesion.h"

namespace list {

/// Why a list that has grown past its snapshot can't be compared with it, and what to do then.
inline constexpr const char* kLineasNuevas =
    "La lista tiene más líneas que al cargarla, por entradas aceptadas o por lo que se ha pedido "
    "ver. Pulse Grabar, o Cancelar para volver a cargarla sin lo aceptado.";

/// The grid of payments with its snapshot, its totals and the state that its events share.
class RejillaPagos {
 public:
  RejillaPagos(services::PictureBox& panel, services::Sesion& sesion);

  services::MSFlexGrid MSFPagos;
  /// Hidden copy of `MSFPagos`, taken after each full load.
  services::MSFlexGrid MsfPagos2;
  /// Holds the drawing of the check mark.
  services::Image ImgCheck;
  services::Label Label14;
  services::TextBox TxtTotal;
  services::Label LblPendiente;

  /// True while the code itself moves the current cell: the grid's events then do nothing.
  bool GridOcupado = false;
  /// True while code moves the current column to the check mark, so that the amount typed is
  /// committed to the row.
  bool MoviendoColumna = false;
  /// A row of the list has been chosen.
  bool FilaElegida = false;

  /// Titles, widths, alignments and fonts, and the rows at rest.
  void Preparar();
  /// Titles and fixed width of the first two columns.
  void PonerOrden(const Orden& orden);
  /// That of the rows on display.
  [[nodiscard]] const Orden& OrdenActual() const { return orden_; }
  /// The width of the concept column: what the others leave, less the scroll bar's when there are
  /// more rows than fit.
  void AjustarAnchos();
  /// Rows that fill the grid, the header counted.
  [[nodiscard]] int FilasVisibles() const;

  /// Back to the header alone, with nothing pending.
  void Vaciar();
  /// Sums up the rows on display and shows both totals.
  void Totalizar();
  /// Takes a row out without a rebuild, which keeps the order and what is on sight: the totals go
  /// down by it, an empty row comes at the end, and the stripes go on alternating.
  void QuitarFila(int fila);
  /// Writes a payment in its row: the text, the mark, and what is pending.
  void Anotar(int fila, const Pago& pago);
  /// The payments that no table has. Whatever makes the list anew loses them.
  [[nodiscard]] const PagosSinGrabar& SinGrabar() const { return sinGrabar_; }
  /// Takes the user to a line, in that column. Whether it is there.
  bool Elegir(const Linea& linea, int columna);

  /// Paints a row as the current one, or with its stripe, which follows that of the row above.
  void PintarElegida(int fila);
  void PintarFranja(int fila);

  /// Whether a row is a due date: its invoice number is not empty.
  [[nodiscard]] bool EsPagable(int fila) const;
  [[nodiscard]] Linea LineaDe(int fila) const { return list::LineaDe(MSFPagos, fila, orden_); }
  [[nodiscard]] Recibo ReciboDe(int fila) const;
  /// Whether there are more lines than in the snapshot, as after an entry: comparing them fails.
  [[nodiscard]] bool HayLineasNuevas() const { return MSFPagos.Rows > MsfPagos2.Rows; }
  /// Amount of a cell; an empty one counts 0.
  [[nodiscard]] double ImporteDe(int fila, int columna) const;

  /// Whether the working due dates still hold the amounts of the snapshot: False from the first
  /// amount that is written to them until the next snapshot.
  bool CopiaAlDia = false;

  /// Takes the snapshot.
  void CopiarGrip();
  /// Whether the list differs from the snapshot. Throws 381 when the list has grown past it.
  [[nodiscard]] bool ComprobarCambios() const;
  /// Whether the snapshot has the same line in the same row.
  [[nodiscard]] bool EsLaMismaLinea(int fila) const;
  /// The receipt of a row's own line as the snapshot has it, wherever that is; empty texts for a
  /// line that it lacks.
  [[nodiscard]] Recibo ReciboAntes(int fila) const;

 private:
  void SumarAlPendiente(double importe);
  void MostrarPendiente();
  void IntercambiarFranjas(int desde);

  services::Sesion& sesion_;
  /// What remains to be paid of the rows on display.
  double TotalPendiente_ = 0;
  PagosSinGrabar sinGrabar_;
  Orden orden_ = PorFecha;
  Orden ordenDeLaCopia_ = PorFecha;
};

}  // namespace list
