#include "store/copia_de_trabajo.h"

#include "store/carga.h"
#include "store/grabacion.h"
#include "store/vaciado.h"
#include "valores/error.h"

namespace store {
namespace {

void ExigirCompleto(const Intervalo& rango) {
  if (!rango.Desde.empty() && !rango.Hasta.empty()) return;
  throw services::ErrorEjecucion(services::error::TiposNoCoinciden,
                                 "El rango de fechas no está completo y no se puede cargar");
}

}  // namespace

void CopiaDeTrabajo::Cargar(const Intervalo& rango) {
  ExigirCompleto(rango);
  rango_.reset();
  if (CargarTemporales(sesion_, rango)) rango_ = rango;
}

void CopiaDeTrabajo::Retomar(const Intervalo& rango) {
  ExigirCompleto(rango);
  rango_ = rango;
}

void CopiaDeTrabajo::Grabar() {
  if (!rango_) {
    throw services::ErrorEjecucion(
        services::error::ObjetoNoEstablecido,
        "La copia de trabajo no está completa y no se puede grabar. Pulse Cancelar para volver a "
        "cargarla");
  }
  GrabarTemporales(sesion_, *rango_, [this] { rango_.reset(); });
}

void CopiaDeTrabajo::Vaciar() {
  rango_.reset();
  VaciarTemporales(sesion_.CnTemp());
}

}  // namespace store
