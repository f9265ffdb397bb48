#pragma once

#include <string>

#include "datos/recordset.h"
#include "forms/controles.h"
#include "list/edicion_pagado.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"
#include "store/rango_fechas.h"

namespace list {

/// The merged list of payments: due dates of the working copy and the occurrences that its
/// forecasts produce in the range, in the order and with the filters that the user chose.
class ListaPagos {
 public:
  ListaPagos(services::Form& form, services::PictureBox& panel, services::Sesion& sesion,
             RejillaPagos& rejilla, EdicionPagado& edicion, const store::RangoFechas& rango);

  services::OptionButton OptFecha;
  services::OptionButton OptConcepto;
  services::CheckBox ChkPagados;
  services::CheckBox ChkPrevisiones;

  /// Rebuilds the list from the working tables. After a line that couldn't be written, and its
  /// message, the grid stays at its header; after that, and after an error that comes out (13 for a
  /// negative amount), its events stay off until the next rebuild.
  void CargarGrip();
  /// By date when `OptFecha` is chosen, by concept when not.
  [[nodiscard]] Orden OrdenElegido() const { return OptFecha.Value ? PorFecha : PorConcepto; }
  /// Ticks both filters without a rebuild.
  void VerTodo();

 private:
  void OptFecha_Click();
  void OptConcepto_Click();
  void ReordenarPor(const Orden& orden, services::OptionButton& elegido);
  void Chk_Click(const services::CheckBox& filtro);

  [[nodiscard]] bool ReunirVencimientos(services::Recordset& lista);
  void ReunirPrevisiones();
  void ExpandirPrevision(services::Recordset& prevision);
  void MostrarLineas();
  [[nodiscard]] bool SeMuestra(const services::Valor& importe, const services::Valor& pagado) const;
  void MostrarLinea(services::Recordset& linea, int fila);
  void Rellenar();
  void Totalizar();
  /// Writes the pending line. A failure is told to the user and the line dropped; false then.
  [[nodiscard]] bool Escribir(services::Recordset& lista, const char* siNoCabe);
  void PintarSiguiente(int texto);

  services::Sesion& sesion_;
  RejillaPagos& rejilla_;
  EdicionPagado& edicion_;
  const store::RangoFechas& rango_;
  services::OptionButton* enUso_ = nullptr;  // of the order that the list is in
  bool FilaAlterna_ = false;
};

}  // namespace list
