#pragma once

#include <string>

#include "entry/campos.h"
#include "entry/factura.h"
#include "entry/importes.h"
#include "entry/panel.h"
#include "entry/pantalla_de_caja.h"
#include "entry/prevision.h"
#include "entry/terminos.h"
#include "entry/vencimientos.h"
#include "list/borrado.h"
#include "list/lista_pagos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"
#include "valores/texto.h"

namespace entry {

/// The click of `BtnAceptar`: the checks of an entry, one after another, and then its rows. A check
/// that fails tells why, gives its field the focus and leaves the panel open; what was written
/// before it stays written. An entry without a number is legal, and leaves a forecast only.
class Aceptacion {
 public:
  /// The blocks whose work it is.
  struct Bloques {
    EdicionVencimiento& Edicion;
    entry::Vencimientos& Vencimientos;
    entry::Terminos& Terminos;
    entry::Importes& Importes;
    entry::Prevision& Prevision;
    entry::Factura& Factura;
    entry::Panel& Panel;
    list::ListaPagos& Lista;
    list::Borrado& Borrado;
  };
  Aceptacion(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
             const Bloques& bloques, PantallaDeCaja& caja);

 private:
  void BtnAceptar_Click();

  // Each whether the acceptance goes on.
  [[nodiscard]] bool Comprobar();
  [[nodiscard]] bool ComprobarFechas();
  [[nodiscard]] bool ComprobarIrpf();
  [[nodiscard]] bool RecibosCompletos();
  [[nodiscard]] bool ComprobarSuma();
  [[nodiscard]] bool GenerarSiFaltan();
  [[nodiscard]] bool ComprobarBases();
  [[nodiscard]] bool ComprobarConcepto();
  [[nodiscard]] bool ComprobarTotal();
  [[nodiscard]] bool ExigirPrevision();
  [[nodiscard]] bool FecharPrevisionHoy();
  [[nodiscard]] bool GrabarNueva();
  [[nodiscard]] bool GrabarModificada();
  [[nodiscard]] bool GrabarOcurrencia();

  void CompletarTotal();
  void PonerTerminosAlDia();
  void SellarCaja();
  void Sellar(const ApunteDeCaja& apunte);
  void Terminar();
  void Cerrar();
  void SoltarCaja();

  /// Blanks alone are none: what has no number can't be found again.
  [[nodiscard]] bool TieneNumero() const { return !services::Trim(c_.TxtNFra.Text()).empty(); }
  /// Tells why, gives the focus, and says that it doesn't go on.
  bool Parar(const std::string& motivo, services::Widget& campo);
  bool PararSinMas(const char* motivo);

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  Bloques b_;
  PantallaDeCaja& caja_;
};

}  // namespace entry
