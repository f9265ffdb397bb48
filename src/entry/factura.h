#pragma once

#include <string>
#include <vector>

#include "datos/recordset.h"
#include "entry/campos.h"
#include "entry/clave.h"
#include "entry/terminos.h"
#include "entry/vencimientos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// The invoice on the panel, as it comes out of the working tables and goes into them: its row,
/// those of its bases, and through `Vencimientos` its receipts.
class Factura {
 public:
  Factura(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
          Vencimientos& vencimientos, Terminos& terminos);

  /// Fills the panel with the invoice of the list's current row; whether the working tables have
  /// it.
  [[nodiscard]] bool CargarFactura();
  /// Writes it; the checks have passed. What comes of it is `BtnAceptar.Tag`: "F" when it was
  /// refused.
  void GrabarFactura();

 private:
  /// Fields of a rate, and its code in the table of bases.
  struct Partida {
    const char* Tipo;
    const services::TextBox& Base;
    const services::TextBox* Iva;  ///< null for the exempt part
  };

  void PonerAplazado(services::Recordset& factura);
  void PonerVista(const Clave& clave);
  void PonerIrpf(services::Recordset& factura);
  void PonerBases(const Clave& clave);
  void PonerBase(services::Recordset& base);

  [[nodiscard]] bool EstaAlmacenada() const;
  void RechazarRepetida();
  [[nodiscard]] Clave ClaveModificada() const;
  void Rellenar(services::Recordset& rs);
  /// Whether the pending row was written; a refusal is told, and leaves the focus there.
  [[nodiscard]] bool Escribir(services::Recordset& rs, const char* siNoCabe,
                              services::TextBox& campo);

  /// Those in use, in their order.
  [[nodiscard]] std::vector<Partida> Partidas() const;
  [[nodiscard]] bool GrabarBases();
  void AbrirBases(services::Recordset& rs) const;
  [[nodiscard]] bool AnadirBases(services::Recordset& rs);
  [[nodiscard]] bool ActualizarBases(services::Recordset& rs);
  [[nodiscard]] bool EscribirBase(services::Recordset& rs, const Partida& partida,
                                  const char* columnaExento);

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  Vencimientos& vencimientos_;
  Terminos& terminos_;
};

}  // namespace entry
