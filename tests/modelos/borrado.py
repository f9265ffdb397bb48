"""Deletion of what the current row stands for."""

from copia import sin_comilla
from mensajes import BORRAR_FACTURA, BORRAR_PREVISION
from valores import COLUMNA_DESCONOCIDA, ErrorEjecucion, a_guardada, dinero, igual, mascara, numero, recortar


class Borrado:
    """Part of the screen. It reaches the working tables only."""

    def borrar(self):
        self.cerrar_edicion()
        fila = self.rejilla.fila
        celdas = self.rejilla.celdas[fila]
        if fila < 1 or celdas[0] == "":
            return
        if self.rejilla.pagable(fila):
            respuesta = self.puesto.preguntar(BORRAR_FACTURA, 3)
            if respuesta == "si":
                self._borrar_factura(celdas)
            elif respuesta == "no":
                self._borrar_recibo(fila, celdas)
            return
        respuesta = self.puesto.preguntar(BORRAR_PREVISION, 3)
        if respuesta == "si":
            self.local.previsiones.borrar(lambda p: igual(p["NConcepto"], celdas[6]))
            self.local.lapidas.borrar(lambda p: igual(p["NConcepto"], celdas[6]))
            self.cargar_grip()
        elif respuesta == "no":
            self.local.lapidas.insertar({"NConcepto": celdas[6], "Importe": dinero(celdas[3]),
                                         "FechaVto": a_guardada(self.rejilla.fecha(fila))})
            self._quitar_fila(fila)

    def _es_de(self, columna, celdas):
        return lambda f: (igual(recortar(f[columna]), celdas[2]) and igual(f["NConcepto"], celdas[6])
                          and igual(f["Año"], celdas[7]))

    def _borrar_factura(self, celdas):
        sin_comilla(celdas[2])
        self.local.vencimientos.borrar(self._es_de("NFactura", celdas))
        self.local.facturas.borrar(self._es_de("Factura", celdas))
        self.local.bases.borrar(self._es_de("NFactura", celdas))
        for apunte in self.local.caja.filas:
            if (igual(recortar(apunte["Factura"]), celdas[2]) and str(apunte["Tipo"]) == celdas[6]
                    and igual(apunte["Año"], celdas[7])):
                apunte.update(Factura="", Año="")
        self.cargar_grip()

    def _borrar_recibo(self, fila, celdas):
        """The last receipt of an invoice takes it along, and stops at a column that isn't there."""
        sin_comilla(celdas[2])
        suyo, fecha = self._es_de("NFactura", celdas), a_guardada(self.rejilla.fecha(fila))
        self.local.vencimientos.borrar(lambda v: suyo(v) and igual(v["FechaVto"], fecha))
        if self.local.vencimientos.primera(suyo) is None:
            self.local.facturas.borrar(self._es_de("Factura", celdas))
            self.local.bases.borrar(suyo)
            raise ErrorEjecucion(COLUMNA_DESCONOCIDA)
        self._quitar_fila(fila)

    def _quitar_fila(self, fila):
        celdas = self.rejilla.celdas[fila]
        self.pendiente -= numero(celdas[3]) - numero(celdas[4])
        self.rotular()
        self.total = mascara(numero(self.total) - numero(celdas[3]))
        self.rejilla.quitar(fila)
