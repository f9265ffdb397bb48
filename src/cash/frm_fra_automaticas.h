#pragma once

#include "cash/campos_automaticas.h"
#include "cash/generacion.h"
#include "entry/codigo.h"
#include "entry/selector.h"
#include "forms/controles.h"
#include "forms/form.h"
#include "list/lista_pagos.h"
#include "services/sesion.h"

namespace cash {

/// "Facturas Automaticas": cash entries that no invoice covers become invoices, one a concept, with
/// no amount typed. All share the number and the date given here.
class FrmFraAutomaticas final : public services::Form {
 public:
  FrmFraAutomaticas(services::Escritorio& escritorio, services::Sesion& sesion,
                    list::ListaPagos& lista);

  services::Cintilla Barra1;

  CamposAutomaticas Campos;

 private:
  void Form_Load() override;
  void Form_Unload() override { generacion_.PonerListaAlDia(); }
  void PonerMesAnterior();

  void UnirFoco();
  void UnirTeclas();
  void UnirTeclasDeFecha(services::TextBox& campo, services::TextBox& siguiente);
  void ActivarConcepto(bool estado);
  void ActivarFechas(bool estado);
  void Normalizar(services::TextBox& fecha);

  void lblFecha_Click();
  void CmdCon_Click();
  void TxtConcepto_LostFocus();
  void BuscarConcepto();

  services::Sesion& sesion_;
  const entry::CamposDeConcepto concepto_;
  entry::Selector selector_;
  Generacion generacion_;
};

}  // namespace cash
