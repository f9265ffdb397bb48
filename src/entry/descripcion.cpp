#include "entry/descripcion.h"

#include "datos/recordset.h"

namespace entry {

std::optional<std::string> DescripcionDe(services::Sesion& sesion, const std::string& codigo) {
  services::Recordset rs;
  rs.Open("SELECT ProvConceptos.* From ProvConceptos WHERE ProvConceptos.NConcepto like '" +
              codigo + "'",
          sesion.CnDatos(), services::ModoApertura::Lectura);
  if (rs.Eof()) return std::nullopt;
  return rs.Collect("Descripcion").Texto();
}

}  // namespace entry
