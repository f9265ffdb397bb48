#pragma once

#include "entry/campos.h"
#include "entry/codigo.h"
#include "entry/edicion_vencimiento.h"
#include "entry/pantalla_de_caja.h"
#include "entry/selector.h"
#include "entry/terminos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// Who the entry is about and by which papers: the concept, by its code, by a part of its name or
/// by the chooser, and the invoice's date and number.
class Concepto {
 public:
  Concepto(services::Form& pantalla, Campos& campos, services::Sesion& sesion,
           const list::RejillaPagos& lista, EdicionVencimiento& edicion, Terminos& terminos,
           PantallaDeCaja& caja);

 private:
  void UnirTeclas();
  void TxtConcepto_GotFocus();
  void TxtConcepto_LostFocus();
  void CmdCon_Click();
  void TxtFFra_LostFocus();

  void BuscarConcepto();
  void ExigirConcepto();
  void RehacerCaja();

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  EdicionVencimiento& edicion_;
  Terminos& terminos_;
  PantallaDeCaja& caja_;
  const CamposDeConcepto concepto_;
  Selector selector_;
};

}  // namespace entry
