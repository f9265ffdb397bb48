#include "entry/clave.h"

#include "list/linea.h"
#include "valores/fecha.h"
#include "valores/texto.h"

namespace entry {

Clave ClaveDeLaLista(const list::RejillaPagos& lista) {
  const list::Linea linea = lista.LineaDe(lista.MSFPagos.Row);
  return {linea.NConcepto, std::string(services::Trim(linea.NFactura)), linea.Anio};
}

Clave ClaveDelPanel(const Campos& campos) {
  return {campos.TxtNConcepto.Text(), std::string(services::Trim(campos.TxtNFra.Text())),
          AnioDe(campos.TxtFFra.Text())};
}

Clave ClaveDeLaEntrada(const Campos& campos, const list::RejillaPagos& lista) {
  return campos.EsNueva() ? ClaveDelPanel(campos) : ClaveDeLaLista(lista);
}

std::string FacturaDe(const std::string& tabla, const char* y, const Clave& clave) {
  return "SELECT " + tabla + ".* FROM " + tabla + " WHERE RTRIM(LTRIM(" + tabla +
         ".Factura)) like '" + clave.Factura + "' And " + tabla + ".NConcepto like '" +
         clave.NConcepto + "' " + y + " " + tabla + ".Año like '" + clave.Anio + "'";
}

std::string AnioDe(const std::string& fecha) {
  const auto dia = services::LeerFecha(fecha);
  return dia ? std::to_string(services::Descomponer(*dia).Anio) : "";
}

}  // namespace entry
