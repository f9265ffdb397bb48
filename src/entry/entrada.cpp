#include "entry/entrada.h"

namespace entry {

Entrada::Entrada(Campos& c, const Vecinos& v)
    : Recibos(c, v.Sesion, v.Rejilla),
      Edicion(c, v.Sesion, Recibos, v.Rejilla),
      Foco(c, Edicion),
      Pago(c, v.Sesion, v.Rejilla, Recibos, v.Caja),
      Cifras(c, v.Sesion, v.Rejilla, Edicion, Pago),
      Prevision(c, v.Sesion, v.Rejilla),
      Concepto(v.Pantalla, c, v.Sesion, v.Rejilla, Pago, v.Caja),
      Panel(c, v.Sesion, v.Rejilla, v.EdicionPagado, {Recibos, Pago, Cifras, Prevision}, v.Caja,
            v.Debajo),
      Aceptacion(c, v.Sesion, v.Rejilla,
                 {Edicion, Recibos, Pago, Cifras, Prevision, Panel, v.Lista, v.Borrado}, v.Caja) {}

}  // namespace entry
