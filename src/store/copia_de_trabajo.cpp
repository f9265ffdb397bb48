#include "store/copia_de_trabajo.h"

#include "store/carga.h"
#include "store/grabacion.h"
#include "store/vaciado.h"
#include "valores/error.h"

namespace store {

void CopiaDeTrabajo::Cargar(const Intervalo& rango) {
  rango_.reset();
  if (CargarTemporales(sesion_, rango)) rango_ = rango;
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
