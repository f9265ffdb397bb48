#pragma once

#include <string>

#include "datos/conexion.h"
#include "datos/recordset.h"
#include "muestra/negocio.h"

namespace muestra {

/// Writes the sample business into the stored tables, as any program of the suite does, so that it
/// serves every engine.
class Escritura {
 public:
  explicit Escritura(services::Conexion& CnDatos);

  void Anadir(const Concepto& concepto);
  void Anadir(const Factura& factura);
  void Anadir(const Prevision& prevision);
  void Anadir(const Apunte& apunte);

 private:
  void Anadir(const Factura& factura, const Base& base);
  void Anadir(const Factura& factura, const Recibo& recibo);

  services::Recordset conceptos_;
  services::Recordset facturas_;
  services::Recordset bases_;
  services::Recordset vencimientos_;
  services::Recordset previsiones_;
  services::Recordset caja_;
};

}  // namespace muestra
