#pragma once

#include <string>
#include <string_view>

#include "forms/controles.h"
#include "forms/msflexgrid.h"
#include "services/sesion.h"

namespace list {

/// Columns of `MSFPagos`. What the first two hold depends on the order chosen; the last two are
/// hidden.
namespace columna {
inline constexpr int NFactura = 2;
inline constexpr int Importe = 3;
inline constexpr int Pagado = 4;
inline constexpr int Marca = 5;
inline constexpr int NConcepto = 6;
inline constexpr int Anio = 7;
inline constexpr int Cuantas = 8;
}  // namespace columna

/// Which of the first two columns holds what.
struct Orden {
  int Fecha = 0;
  int Concepto = 1;
};
inline constexpr Orden PorFecha{0, 1};
inline constexpr Orden PorConcepto{1, 0};

/// The grid of payments with its snapshot, its totals and the state that its events share.
class RejillaPagos {
 public:
  RejillaPagos(services::Form& form, services::PictureBox& panel, services::Sesion& sesion);

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
  /// What remains to be paid of the rows on display.
  double TotalPendiente = 0;

  /// Titles, widths, alignments and fonts, and the rows at rest.
  void Preparar();
  /// Titles and fixed width of the first two columns.
  void PonerOrden(const Orden& orden);
  /// The width of the concept column: what the others leave, less the scroll bar's when there are
  /// more rows than fit.
  void AjustarAnchos(const Orden& orden);

  /// Rows that fill the grid, the header counted.
  [[nodiscard]] int FilasVisibles() const;
  /// Paints a row cell by cell, the last one unless `mantenerFila`, and leaves its last column
  /// current. `cuerpo` (points) and `alineacion` are numbers as text; the empty text leaves them.
  void PintarFila(int fondo, int texto, std::string_view cuerpo = "",
                  std::string_view alineacion = "", bool mantenerFila = false);
  /// Shows the pending total: its caption always, and the label itself from 1.0 on.
  void MostrarPendiente();
  /// Whether a row is a due date: its invoice number is not empty.
  [[nodiscard]] bool EsPagable(int fila) const;
  /// Amount of a cell; an empty one counts 0.
  [[nodiscard]] double ImporteDe(int fila, int columna) const;
  /// The texts of a row joined by tabs.
  [[nodiscard]] std::string FilaUnida(int fila) const;

  /// Takes the snapshot.
  void CopiarGrip();
  /// Whether the list differs from the snapshot. Throws 381 when the list has grown past it.
  [[nodiscard]] bool ComprobarCambios() const;

 private:
  services::Sesion& sesion_;
};

}  // namespace list
