#include "cash/caja_del_panel.h"

namespace cash {

FrmPagosCaja& CajaDelPanel::Cargada() {
  FrmPagosCaja& pantalla = pantalla_.Pedir(escritorio_, sesion_, c_, entrada_.Terminos);
  pantalla.Load();
  return pantalla;
}

void CajaDelPanel::Rehacer() {
  Descargar();
  Cargar();
}

void CajaDelPanel::RehacerSiEsDeOtro() {
  const FrmPagosCaja* pantalla = pantalla_.Si();
  if (pantalla && pantalla->Concepto() != c_.TxtNConcepto.Text()) Rehacer();
}

void CajaDelPanel::Descargar() {
  if (FrmPagosCaja* pantalla = pantalla_.Si()) pantalla->Unload();
}

}  // namespace cash
