#include "salvaguarda/dicho.h"

#include <algorithm>

#include "sqlite/momento.h"
#include "valores/fecha.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace salvaguarda {

std::string FechaDicha(const std::string& guardada) {
  if (guardada.size() != 8 || !std::ranges::all_of(guardada, services::EsCifra)) return guardada;
  std::string fecha =
      guardada.substr(6, 2) + "/" + guardada.substr(4, 2) + "/" + guardada.substr(0, 4);
  return services::LeerFecha(fecha) ? fecha : guardada;
}

std::string MomentoDicho(const std::string& guardado) {
  const auto momento = sqlite::LeerMomento(guardado);
  return momento ? services::TextoDeFecha(*momento) : guardado;
}

std::string ImporteDicho(const services::Valor& importe) {
  return services::Mascara(importe);
}

std::string PagadoDicho(const services::Valor& pagado) {
  const std::string importe = ImporteDicho(pagado);
  return importe.empty() || importe == "0,00" ? "nada" : importe;
}

}  // namespace salvaguarda
