#pragma once

#include <vector>

#include "cash/apuntes_sin_factura.h"
#include "cash/campos_automaticas.h"
#include "cash/facturas_de_caja.h"
#include "list/lista_pagos.h"
#include "services/sesion.h"

namespace cash {

/// "Generar": the chosen cash entries become invoices, the list is made anew, and the screen goes.
class Generacion {
 public:
  Generacion(CamposAutomaticas& campos, services::Sesion& sesion, list::ListaPagos& lista);

 private:
  void GenerarFacturas();
  [[nodiscard]] bool DatosCompletos();
  [[nodiscard]] DatosDeFactura Datos();
  // Each whether the run comes to its end, and the screen goes.
  [[nodiscard]] bool Facturar(const DatosDeFactura& datos);
  [[nodiscard]] bool FacturarElegidos(services::Recordset& facturas, const DatosDeFactura& datos);

  [[nodiscard]] bool YaExiste(services::Recordset& facturas, const DatosDeFactura& datos);
  [[nodiscard]] ApuntesSinFactura Elegidos() const;
  [[nodiscard]] bool SePuedenFacturar(const std::vector<Grupo>& grupos);
  void PrepararAvance(std::size_t grupos);
  [[nodiscard]] bool EscribirFactura(FacturasDeCaja& facturas, const Grupo& grupo);
  void Terminar();

  CamposAutomaticas& c_;
  services::Sesion& sesion_;
  list::ListaPagos& lista_;
};

}  // namespace cash
