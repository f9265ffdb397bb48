#pragma once

#include <string>
#include <vector>

#include "entry/campos.h"
#include "entry/clave.h"
#include "list/pago.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace services {
class Recordset;
}  // namespace services

namespace entry {

/// From which rows, and under which conditions, the receipts of an invoice are read and deleted.
[[nodiscard]] std::string RecibosDe(const Clave& clave);

/// The receipts of the invoice on the panel: how they come from the working table into
/// `MSFVencimientos`, how they go back, and the hidden set that a refused change goes back to.
class Vencimientos {
 public:
  Vencimientos(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista);

  /// Titles, alignments, heights and widths of both grids, and the rows at rest.
  void Preparar();
  /// Four blank rows, and no editor over them.
  void Vaciar();
  /// The same, with nothing loaded that what is written could be compared with.
  void Reiniciar();
  /// Columns share the grid's width; more rows than fit leave room for a scroll bar.
  void AjustarAnchos();

  /// Writes a row, which it adds where there is none, without its mark.
  void Poner(int fila, const std::string& fecha, const list::Recibo& recibo);
  /// Writes a payment in a row: the text and the mark.
  void Anotar(int fila, const list::Pago& pago);
  [[nodiscard]] list::Recibo ReciboDe(int fila) const;
  [[nodiscard]] bool TieneFecha(int fila) const;
  /// The first due date as the grid shows it, empty when it has no row.
  [[nodiscard]] std::string PrimeraFecha() const;
  [[nodiscard]] bool EstaMarcada(int fila) const;
  /// The row as the last accepted set has it; empty texts for a row that it lacks.
  [[nodiscard]] list::Recibo ReciboAceptado(int fila) const;

  /// Of the rows down to the first without a date.
  [[nodiscard]] double SumaDeImportes() const;
  /// Whether the first row has no amount.
  [[nodiscard]] bool SinImporte() const;
  /// Whether the list can add up all amounts and payments that are to be written.
  [[nodiscard]] bool SePuedenSumar() const;
  /// Whether there are changed receipts that the form of payment has no line for.
  [[nodiscard]] bool DejaRecibosFuera() const;

  /// Fills the grid for the panel's invoice. A payment that stands in the list, not yet saved, wins
  /// over the stored one.
  void CargarVencimientos();
  /// Writes the grid to the working table, in the place of what is there; nothing when a modified
  /// invoice's receipts are those that were loaded.
  void GrabarVencimientos();
  /// The rows into the hidden grid, blank ones too.
  void GuardarVencimientos();
  /// And back, up to the first blank row.
  void RestaurarVencimientos();

 private:
  /// Since they were loaded; those of a new entry always have.
  [[nodiscard]] bool HanCambiado() const;
  using Fila = std::vector<std::string>;

  [[nodiscard]] Clave ClaveDeLinea() const;
  [[nodiscard]] std::string PagadoEnLista(int fila, const Clave& clave, const std::string& fecha,
                                          const std::string& pagado) const;
  [[nodiscard]] std::vector<Fila> Filas() const;
  [[nodiscard]] int LineasQueSeGraban() const;
  [[nodiscard]] bool GrabarLinea(services::Recordset& rs, int fila, const Clave& clave);

  Campos& c_;
  services::MSFlexGrid& rejilla_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  /// What `CargarVencimientos` last loaded.
  std::vector<Fila> cargadas_;
};

}  // namespace entry
