#include "entry/plazos.h"

#include "entry/fechas.h"
#include "valores/error.h"
#include "valores/formato.h"

namespace entry {

using services::Mascara;

namespace {

/// What `TxtNRecibos` can hold in figures; a paste could tell a thousand million in its three
/// places.
constexpr double kRecibosMaximos = 999;

}  // namespace

void RepartirEnRecibos(const Plazos& plazos,
                       const std::function<void(int, const ReciboNuevo&)>& visitar) {
  if (plazos.Recibos == 0) {
    throw services::ErrorEjecucion(services::error::DivisionPorCero, "División por cero");
  }
  if (plazos.Recibos > kRecibosMaximos) {
    throw services::ErrorEjecucion(services::error::Desbordamiento, "Son demasiados recibos");
  }
  double parte = services::EnCentimos(plazos.Total / plazos.Recibos);
  const double pagado =
      plazos.PagadoEnCaja > 0 ? services::EnCentimos(plazos.PagadoEnCaja / plazos.Recibos) : 0;
  std::string fecha = plazos.FechaFactura;
  for (int i = 1; i <= plazos.Recibos; ++i) {
    fecha = FechaMas(fecha, "d", i == 1 ? plazos.Dias : plazos.Cadencia);
    if (i == plazos.Recibos) parte -= plazos.Recibos * parte - plazos.Total;
    visitar(i, {fecha, Mascara(parte), Mascara(pagado)});
  }
}

ReciboNuevo ReciboALaVista(const std::string& fecha, const std::string& total,
                           double pagadoEnCaja) {
  return {fecha, Mascara(services::Valor(total)), Mascara(pagadoEnCaja)};
}

}  // namespace entry
