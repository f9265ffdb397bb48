#include "store/vaciado.h"

#include "datos/recordset.h"

namespace store {

void VaciarTemporales(services::Conexion& CnTemp) {
  services::Recordset rs;
  for (const char* sentencia : {
           "DELETE TempProvFacturas.* FROM TempProvFacturas",
           "DELETE TempProvVencimientos.* FROM TempProvVencimientos",
           "DELETE TempProvBasesIva.* FROM TempProvBasesIva",
           "DELETE TempProvPrevisionPagos.* FROM TempProvPrevisionPagos",
           "DELETE TempCajaPagos.* From TempCajaPagos",
       }) {
    rs.Open(sentencia, CnTemp, services::ModoApertura::Optimista);
  }
}

}  // namespace store
