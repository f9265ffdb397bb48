#pragma once

#include "entry/aceptacion.h"
#include "entry/campos.h"
#include "entry/comunes.h"
#include "entry/concepto.h"
#include "entry/edicion_vencimiento.h"
#include "entry/importes.h"
#include "entry/panel.h"
#include "entry/pantalla_de_caja.h"
#include "entry/prevision.h"
#include "entry/terminos.h"
#include "entry/vencimientos.h"
#include "list/borrado.h"
#include "list/edicion_pagado.h"
#include "list/lista_pagos.h"
#include "list/rejilla_pagos.h"

namespace entry {

/// What the panel takes from the screen that it lies on.
struct Vecinos {
  services::Form& Pantalla;
  services::Sesion& Sesion;
  list::RejillaPagos& Rejilla;
  list::EdicionPagado& EdicionPagado;
  list::ListaPagos& Lista;
  list::Borrado& Borrado;
  PantallaDeCaja& Caja;
  BajoElPanel& Debajo;
};

/// The blocks of the entry panel, each knowing those before it alone.
class Entrada {
 public:
  Entrada(Campos& campos, const Vecinos& v);

  entry::Vencimientos Vencimientos;
  EdicionVencimiento Edicion;
  entry::Terminos Terminos;
  entry::Importes Importes;
  entry::Prevision Prevision;
  entry::Concepto Concepto;
  entry::Factura Factura;
  entry::Panel Panel;
  entry::Aceptacion Aceptacion;
};

}  // namespace entry
