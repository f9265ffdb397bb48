#pragma once

#include "entry/campos.h"
#include "entry/factura.h"
#include "entry/importes.h"
#include "entry/pantalla_de_caja.h"
#include "entry/prevision.h"
#include "entry/terminos.h"
#include "entry/vencimientos.h"
#include "list/edicion_pagado.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// What lies under the panel, and is out of use while it is open.
class BajoElPanel {
 public:
  virtual void PonerEnUso(bool estado) = 0;

 protected:
  ~BajoElPanel() = default;
};

/// The entry panel as a whole: closed, open on a new entry, or open on what the list's current row
/// stands for.
class Panel {
 public:
  /// The blocks that it fills.
  struct Bloques {
    entry::Vencimientos& Vencimientos;
    entry::Terminos& Terminos;
    entry::Importes& Importes;
    entry::Prevision& Prevision;
    entry::Factura& Factura;
  };
  Panel(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
        list::EdicionPagado& edicion, const Bloques& bloques, PantallaDeCaja& caja,
        BajoElPanel& debajo);

  /// The state in which the screen is loaded.
  void Preparar();

  /// New, from the button; nothing while it is open.
  void AbrirNueva();
  /// The chosen row, or a new entry where none has been chosen; nothing while it is open.
  void AbrirElegida();
  /// The user goes back to where he was.
  void Cerrar();

 private:
  void BtnCancelar_Click();
  void LimpiarPanel();
  void PrepararNueva();
  void CargarFactura();
  void Abrir();
  [[nodiscard]] services::Widget& PrimerCampo();
  void LimpiarCampos();
  void CargarFila();

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  list::EdicionPagado& edicion_;
  Bloques b_;
  PantallaDeCaja& caja_;
  BajoElPanel& debajo_;
  services::Widget* antes_ = nullptr;  // what had the focus when it opened
};

}  // namespace entry
