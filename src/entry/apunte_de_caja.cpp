#include "entry/apunte_de_caja.h"

#include "valores/texto.h"

namespace entry {

std::string ApuntesAlAlcance(const Campos& campos) {
  const std::string sinFactura =
      "TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') ORDER BY "
      "TempCajaPagos.FechaHora";
  if (campos.EsNueva()) return "(" + sinFactura;
  return "(Trim(TempCajaPagos.Factura) = '" + std::string(services::Trim(campos.TxtNFra.Text())) +
         "' OR " + sinFactura;
}

std::string SentenciaDeApunte(const Campos& campos, const ApunteDeCaja& apunte) {
  return "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = " + apunte.Tipo +
         " AND TempCajaPagos.FechaHora like '" + apunte.FechaHora + "' AND " +
         ApuntesAlAlcance(campos);
}

}  // namespace entry
