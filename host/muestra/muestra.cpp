#include "muestra/muestra.h"

#include <array>

#include "datos/recordset.h"
#include "muestra/caja.h"
#include "muestra/conceptos.h"
#include "muestra/escritura.h"
#include "muestra/facturas.h"
#include "muestra/previsiones.h"

namespace muestra {

services::FechaHora PrimeroDeMes(services::FechaHora dia, int meses) {
  const services::FechaHora mes = services::SumarFecha("m", meses, {dia.Dias});
  return {mes.Dias - services::Descomponer(mes).Dia + 1};
}

bool EstaVacia(services::Conexion& CnDatos) {
  // The shortest table first: a business in use has concepts, and is told by them.
  for (const char* sentencia : {"SELECT ProvConceptos.NConcepto FROM ProvConceptos",
                                "SELECT ProvPrevisionPagos.NConcepto FROM ProvPrevisionPagos",
                                "SELECT ProvFacturas.NConcepto FROM ProvFacturas",
                                "SELECT CajaPagos.idSucursal FROM CajaPagos"}) {
    services::Recordset rs;
    rs.Open(sentencia, CnDatos, services::ModoApertura::Lectura);
    if (!rs.Eof()) return false;
  }
  return true;
}

void Llenar(services::Conexion& CnDatos, services::FechaHora hoy) {
  const auto facturas = Facturas(hoy);
  try {
    Escritura escritura(CnDatos);
    for (const Concepto& concepto : Conceptos()) escritura.Anadir(concepto);
    for (const Factura& factura : facturas) escritura.Anadir(factura);
    for (const Prevision& prevision : Previsiones(hoy)) escritura.Anadir(prevision);
    for (const Apunte& apunte : Caja(facturas, hoy)) escritura.Anadir(apunte);
    CnDatos.TerminarUnidad();
  } catch (...) {
    CnDatos.AbandonarUnidad();
    throw;
  }
}

}  // namespace muestra
