#pragma once

#include <string>

#include "cash/apuntes_sin_factura.h"
#include "datos/recordset.h"
#include "entry/desglose.h"
#include "services/sesion.h"

namespace cash {

/// What the invoices of one run have alike.
struct DatosDeFactura {
  std::string Factura;  ///< the number, without the blanks around it
  std::string Fecha;    ///< in its stored form
  std::string Anio;
  const entry::TipoIva* Tipo = nullptr;  ///< null for exempt
};

/// Writes the invoices of cash entries into the working tables: each with its base and its one
/// receipt, which is born paid, since the money has left the till already.
class FacturasDeCaja {
 public:
  /// How a row was taken. What was refused has been told to the user.
  enum class Fin { Escrita, NoCabe, Fallida };

  /// With `unaPorGrupo` each group is an invoice of its own; otherwise all are one, whose row each
  /// group writes over.
  FacturasDeCaja(services::Sesion& sesion, DatosDeFactura datos, bool unaPorGrupo);

  /// Opens their rows, which stay open for what is written. Whether the working or the stored
  /// tables have an invoice of that concept with their number and year.
  [[nodiscard]] bool Abrir(const std::string& concepto);

  [[nodiscard]] Fin EscribirFactura(const Grupo& grupo);
  /// The base of the invoice just written, unless it has one already; whether it has one then.
  [[nodiscard]] bool EscribirBase(const Grupo& grupo);
  /// Its receipt, in the place of the one that an earlier group may have left. One that is refused
  /// doesn't hold back the others.
  void GenerarRecibo(const Grupo& grupo);

 private:
  void Rellenar(const Grupo& grupo);
  [[nodiscard]] Fin Escribir(services::Recordset& rs, const char* siNoCabe);

  services::Sesion& sesion_;
  const DatosDeFactura datos_;
  const bool unaPorGrupo_;
  services::Recordset facturas_;
  // Those of the last concept that was found: one that isn't there takes them over.
  std::string nConcepto_;
  std::string descripcion_;
};

}  // namespace cash
