#pragma once

#include <string>

#include "forms/controles.h"
#include "list/edicion_pagado.h"
#include "list/lista_pagos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace list {

/// The deletion of what the current row stands for: a due date, or its whole invoice; an occurrence
/// of a forecast, or the whole forecast. It works on the working tables alone.
class Borrado {
 public:
  Borrado(services::PictureBox& panel, const services::Diseno& diseno, services::Sesion& sesion,
          RejillaPagos& rejilla, EdicionPagado& edicion, ListaPagos& lista,
          const services::Widget& PicNuevo);

  services::Pulsador BotonBorrar;

  /// Whether there is anything to delete in the current row.
  [[nodiscard]] bool HayLinea() const;
  /// Deletes the forecast of the current row's concept, with the memory of its occurrences that
  /// were deleted one by one.
  void BorrarPrevision();

 private:
  void BotonBorrar_Click();
  void BorrarDeFactura();
  void BorrarDePrevision();
  void BorrarFactura(const Linea& linea);
  void BorrarVencimiento(const Linea& linea);
  void BorrarCabecera(const Linea& linea);
  void SoltarCaja(const Linea& linea, const char* columnaFactura);
  void AnotarOcurrencia(const Linea& linea);

  [[nodiscard]] Linea LineaActual() const;
  void Ejecutar(const std::string& sentencia);

  services::Sesion& sesion_;
  RejillaPagos& rejilla_;
  EdicionPagado& edicion_;
  ListaPagos& lista_;
  const services::Widget& PicNuevo_;
};

}  // namespace list
