#include "entry/apunte_de_caja.h"

#include "valores/numero.h"
#include "valores/texto.h"

namespace entry {

bool PuedeTenerApuntes(const std::string& concepto) {
  return services::EnteroDeCifras(services::Trim(concepto)).has_value();
}

std::string ApuntesAlAlcance(const Campos& campos) {
  const std::string suya = campos.EsNueva()
                               ? ""
                               : "Trim(TempCajaPagos.Factura) = '" +
                                     std::string(services::Trim(campos.TxtNFra.Text())) + "' OR ";
  return "(" + suya +
         "TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') ORDER BY "
         "TempCajaPagos.FechaHora";
}

std::string SentenciaDeApunte(const Campos& campos, const ApunteDeCaja& apunte) {
  return "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = " + apunte.Tipo +
         " AND TempCajaPagos.FechaHora like '" + apunte.FechaHora + "' AND " +
         ApuntesAlAlcance(campos);
}

}  // namespace entry
