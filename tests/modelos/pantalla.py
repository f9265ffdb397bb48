"""The main screen put together: its state, load and list, filters, commit, end."""

from calendar import monthrange

from borrado import Borrado
from copia import Copia, sin_comilla
from fechas import DESDE, HASTA, Fechas
from lista import Rejilla, fundir
from mensajes import EXCESO_AL_GRABAR, GUARDAR
from pagos import Pagos
from valores import (NO_HAY_CELDA, ErrorEjecucion, a_guardada, dinero, igual, mascara, numero, numero_exacto,
                     recortar)


class Pantalla(Fechas, Pagos, Borrado):
    """One opening of the screen. `puesto` gives the clock, the user, the rows at rest, and the
    messages: avisar(text) and preguntar(text, flags), which answers "si", "no" or "cancelar"."""

    def __init__(self, puesto, almacen, local):
        self.puesto, self.local = puesto, local
        self.copia = Copia(almacen, local)
        hoy = puesto.reloj
        fin = monthrange(hoy.year, hoy.month)[1]
        self.texto = {DESDE: f"01/{hoy:%m/%Y}", HASTA: f"{fin:02}/{hoy:%m/%Y}"}
        self.tag = dict(self.texto)
        self.foco = None
        self.dejando, self.desvio = False, None
        self.editor, self.editor_visible = "", False
        self.por_fecha = self.pagados = self.previsiones = True
        self.pendiente, self.rotulo, self.rotulo_visible, self.total = 0.0, "Total Pendiente:", True, ""
        self.rejilla = self.foto = Rejilla(puesto.reposo)
        self.recargar()

    # Load, list, snapshot.

    def desde(self):
        return a_guardada(self.texto[DESDE])

    def hasta(self):
        return a_guardada(self.texto[HASTA])

    def recargar(self):
        self.copia.cargar(self.desde(), self.hasta())
        self.cargado = dict(self.texto)
        self.cargar_grip()
        self.foto = self.rejilla.copia()
        self.foto_al_dia = True

    def cargar_grip(self):
        lineas = fundir(self.local, self.desde(), self.hasta(), self.previsiones, self.por_fecha)
        if not self.pagados:
            lineas = [linea for linea in lineas if not linea.se_oculta()]
        self.rejilla.llenar(lineas, self.por_fecha)
        total, self.pendiente = 0.0, 0.0
        for celdas in self.rejilla.celdas[1:]:
            importe, pagado = numero(celdas[3]), numero(celdas[4])
            total += importe
            self.pendiente += importe - pagado
        if self.pendiente > 0:
            self.rotulo, self.rotulo_visible = "Total Pendiente: " + mascara(self.pendiente), True
        self.total = mascara(total)
        if self.pendiente < 1.0:
            self.rotulo_visible = False

    def hay_cambios(self):
        """Every row is compared; one that the snapshot lacks is the grid's error."""
        cambios = False
        for fila in range(1, len(self.rejilla.celdas)):
            if fila >= len(self.foto.celdas):
                raise ErrorEjecucion(NO_HAY_CELDA)
            cambios |= self.rejilla.celdas[fila] != self.foto.celdas[fila]
        return cambios

    # Filters and buttons.

    def pulsar(self, widget):
        """A click on a button, box or option; lost when a date field keeps the focus."""
        if self.enfocar(widget):
            {"ChkPagados": self._ver_pagados, "ChkPrevisiones": self._ver_previsiones,
             "OptFecha": lambda: self._ordenar(True), "OptConcepto": lambda: self._ordenar(False),
             "BotonAceptar": self.grabar, "BotonCancelar": self._cancelar,
             "BotonBorrar": self.borrar}[widget]()

    def _ver_pagados(self):
        self.pagados = not self.pagados
        self.cerrar_edicion()
        self.cargar_grip()

    def _ver_previsiones(self):
        self.previsiones = not self.previsiones
        self.cerrar_edicion()
        self.cargar_grip()

    def _ordenar(self, por_fecha):
        self.cerrar_edicion()
        self.por_fecha = por_fecha
        self.cargar_grip()

    def _cancelar(self):
        self.cerrar_edicion()
        self.recargar()

    def cerrar(self):
        """The unload: an error keeps the screen, an answer never does."""
        self.cerrar_edicion()
        if self.hay_cambios() and self.puesto.preguntar(GUARDAR, 4) == "si":
            self.grabar()
        self.local.vaciar()

    # Commit.

    def grabar(self):
        self.cerrar_edicion()
        if self._llevar_pagados():
            self.copia.grabar(self.puesto.reloj, self.puesto.usuario)
            self.recargar()

    def _llevar_pagados(self):
        """Writes the paid cells into the working due dates; False when one is above its receipt. The
        snapshot speaks for a row while it has the same line there, and nothing was written since."""
        hoy = f"{self.puesto.reloj:%Y%m%d}"
        mismas = len(self.foto.celdas) == len(self.rejilla.celdas)
        al_dia = self.foto_al_dia
        for fila in range(1, len(self.rejilla.celdas)):
            pagado = self.rejilla.celdas[fila][4]
            sirve = mismas and al_dia and self.foto.linea(fila) == self.rejilla.linea(fila)
            if sirve and self.foto.celdas[fila][4] == pagado:
                continue
            recibo = self._recibo_de(fila)
            if recibo is None or (mismas and not sirve and mascara(recibo["Pagado"]) == pagado):
                continue
            cuando = hoy if not mismas or numero_exacto(pagado) > 0 else ""
            if recibo["Importe"] is not None and float(recibo["Importe"]) < numero(pagado):
                self.puesto.avisar(EXCESO_AL_GRABAR)
                return False
            recibo.update(Pagado=dinero(pagado), Fechapago=cuando)
            self.foto_al_dia = False
        return True

    def _recibo_de(self, fila):
        codigo, factura, anno, fecha = self.rejilla.linea(fila)
        sin_comilla(factura)
        return self.local.vencimientos.primera(
            lambda v: (igual(v["NConcepto"], codigo) and igual(recortar(v["NFactura"]), recortar(factura))
                       and igual(v["FechaVto"], a_guardada(fecha)) and igual(v["Año"], anno)))

    def mirar(self):
        """What `ver` tells of the two totals: their text, and whether the pending one is seen."""
        return [f'LblPendiente Caption="{self.rotulo}" Visible={int(self.rotulo_visible)}',
                f'TxtTotal Text="{self.total}" Visible=1']
