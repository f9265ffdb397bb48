#pragma once

#include <functional>
#include <string>
#include <vector>

#include "datos/recordset.h"
#include "forms/controles.h"
#include "list/edicion_pagado.h"
#include "list/rango_fechas.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace list {

/// The merged list of payments: due dates of the working copy and the occurrences that its
/// forecasts produce in the range, in the order and with the filters that the user chose.
class ListaPagos {
 public:
  ListaPagos(services::PictureBox& panel, services::Sesion& sesion, RejillaPagos& rejilla,
             EdicionPagado& edicion, const RangoFechas& rango, const services::Widget& PicNuevo);

  services::OptionButton OptFecha;
  services::OptionButton OptConcepto;
  services::CheckBox ChkPagados;
  services::CheckBox ChkPrevisiones;

  /// Rebuilds the list from the working tables. After a line that couldn't be written, and its
  /// message, the grid stays at its header; after that, and after an error that comes out (13 for a
  /// negative amount), its events stay off until the next rebuild.
  void CargarGrip();
  /// Ticks both filters without a rebuild.
  void VerTodo();

 private:
  struct Fila;

  void OptFecha_Click();
  void OptConcepto_Click();
  void ReordenarPor(const Orden& orden);
  /// The options as the rows on display are ordered.
  void ReponerOrden();
  void Chk_Click(services::CheckBox& filtro);
  /// Takes in what is typed in an open editor, before the list changes. When it is no amount, what
  /// the user has just chosen is undone, and the error goes on.
  void CerrarEdicion(const std::function<void()>& deshacer);

  [[nodiscard]] bool ReunirVencimientos(services::Recordset& lista);
  void ReunirPrevisiones();
  void ExpandirPrevision(services::Recordset& prevision);
  void MostrarLineas();
  [[nodiscard]] bool SeMuestra(const services::Valor& importe, const services::Valor& pagado) const;
  void MostrarLinea(const Fila& fila, const services::Valor& importe,
                    const services::Valor& pagado);
  void Rellenar();
  /// Writes the pending line. A failure is told to the user and the line dropped; false then.
  [[nodiscard]] bool Escribir(services::Recordset& lista, const char* siNoCabe);
  /// The next row, striped.
  void AnadirFila(std::vector<std::string> celdas, int texto);

  services::Sesion& sesion_;
  RejillaPagos& rejilla_;
  EdicionPagado& edicion_;
  const RangoFechas& rango_;
  const services::Widget& PicNuevo_;
  bool FilaAlterna_ = false;
};

}  // namespace list
