#include "entry/plazos.h"

#include <cmath>
#include <cstdint>

#include "entry/desglose.h"
#include "valores/fecha.h"
#include "valores/formato.h"

namespace entry {

using services::Mascara;

namespace {

/// A text that is no date throws 13. A part of a day doesn't count.
std::string MasDias(const std::string& fecha, double dias) {
  return services::TextoDeFecha(services::SumarFecha(
      "d", static_cast<std::int64_t>(std::trunc(dias)), services::Fecha(fecha)));
}

}  // namespace

void RepartirEnRecibos(const Plazos& plazos,
                       const std::function<void(int, const ReciboNuevo&)>& visitar) {
  double parte = Redondeado(plazos.Total / plazos.Recibos);
  const double pagado =
      plazos.PagadoEnCaja > 0 ? Redondeado(plazos.PagadoEnCaja / plazos.Recibos) : 0;
  std::string fecha = plazos.FechaFactura;
  for (int i = 1; i <= plazos.Recibos; ++i) {
    fecha = MasDias(fecha, i == 1 ? plazos.Dias : plazos.Cadencia);
    if (i == plazos.Recibos) parte -= plazos.Recibos * parte - plazos.Total;
    visitar(i, {fecha, Mascara(parte), Mascara(pagado)});
  }
}

ReciboNuevo ReciboALaVista(const std::string& fecha, const std::string& total,
                           double pagadoEnCaja) {
  return {fecha, Mascara(services::Valor(total)), Mascara(pagadoEnCaja)};
}

}  // namespace entry
