#include "entry/entrada.h"

#include "entry/comunes.h"

namespace entry {

Entrada::Entrada(Campos& c, const Vecinos& v)
    : Vencimientos(c, v.Sesion, v.Rejilla),
      Edicion(c, v.Sesion, Vencimientos, v.Rejilla),
      Terminos(c, v.Sesion, v.Rejilla, Vencimientos, v.Caja),
      Importes(c, v.Sesion, v.Rejilla, Edicion, Terminos),
      Prevision(c, v.Sesion, v.Rejilla),
      Concepto(v.Pantalla, c, v.Sesion, v.Rejilla, Edicion, Terminos, v.Caja),
      Factura(c, v.Sesion, v.Rejilla, Vencimientos, Terminos),
      Panel(c, v.Sesion, v.Rejilla, v.EdicionPagado,
            {Vencimientos, Terminos, Importes, Prevision, Factura}, v.Caja, v.Debajo),
      Aceptacion(c, v.Sesion, v.Rejilla,
                 {Edicion, Vencimientos, Terminos, Importes, Prevision, Factura, Panel, v.Lista,
                  v.Borrado},
                 v.Caja) {
  UnirFoco(c, Edicion);
}

}  // namespace entry
