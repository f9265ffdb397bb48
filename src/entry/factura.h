#pragma once

#include <array>
#include <string>

#include "datos/recordset.h"
#include "entry/campos.h"
#include "entry/clave.h"
#include "entry/vencimientos.h"
#include "list/rejilla_pagos.h"
#include "services/sesion.h"

namespace entry {

/// The invoice on the panel, as it goes into the working tables: its row, those of its bases, and
/// through `Vencimientos` its receipts.
class Factura {
 public:
  Factura(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
          Vencimientos& vencimientos);

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

  [[nodiscard]] std::string BuscarEn(const char* tabla, const char* y, const Clave& clave) const;
  [[nodiscard]] bool EstaRepetida(services::Recordset& rs);
  [[nodiscard]] Clave ClaveModificada() const;
  void AbrirModificada(services::Recordset& rs) const;
  void Rellenar(services::Recordset& rs);
  /// Whether the pending row was written; a refusal is told, and leaves the focus there.
  [[nodiscard]] bool Escribir(services::Recordset& rs, const char* siNoCabe,
                              services::TextBox& campo);

  [[nodiscard]] std::array<Partida, 4> Partidas() const;
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
};

}  // namespace entry
