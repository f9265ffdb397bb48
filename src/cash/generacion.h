#pragma once

#include <vector>

#include "cash/apuntes_sin_factura.h"
#include "cash/campos_automaticas.h"
#include "cash/facturas_de_caja.h"
#include "list/lista_pagos.h"
#include "services/sesion.h"

namespace cash {

/// "Generar": the chosen cash entries become invoices, and the list is made anew.
class Generacion {
 public:
  Generacion(CamposAutomaticas& campos, services::Sesion& sesion, list::ListaPagos& lista);

  /// Whether the screen has nothing more to do. Throws 13 when the invoices' date, or one of the
  /// entries', is none.
  [[nodiscard]] bool GenerarFacturas();
  /// Makes the list anew when a run was cut short: what it had written is to be seen there.
  void PonerListaAlDia();

 private:
  /// What a run that has begun leaves.
  enum class Fin {
    Cierra,        ///< it came to its end, or an invoice was refused
    Sigue,         ///< it can't be made so
    SigueConBarra  ///< a base was refused; the bar over the screen shows that it stopped halfway
  };

  [[nodiscard]] bool DatosCompletos();
  void ExigirFecha(services::TextBox& campo);
  [[nodiscard]] DatosDeFactura Datos();
  [[nodiscard]] ApuntesSinFactura Elegidos();
  [[nodiscard]] Fin Facturar(FacturasDeCaja& facturas);
  [[nodiscard]] bool SePuedenFacturar(const std::vector<Grupo>& grupos);
  void PrepararAvance(std::size_t grupos);
  [[nodiscard]] bool EscribirFactura(FacturasDeCaja& facturas, const Grupo& grupo);

  CamposAutomaticas& c_;
  services::Sesion& sesion_;
  list::ListaPagos& lista_;
  bool listaAtrasada_ = false;  ///< rows were written that the list doesn't show yet
};

}  // namespace cash
