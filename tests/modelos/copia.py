"""The working copy: load of a range of dates, and the replacement of the stored rows by it."""

from tablas import BASE, CAJA, FACTURA, PREVISION, VENCIMIENTO
from valores import SENTENCIA_MAL_HECHA, ErrorEjecucion, igual, orden, plegar, recortar


def tomar(fila, columnas):
    return {columna: fila[columna] for columna in columnas.split()}


def sin_comilla(*textos):
    """A quote in a value that is spliced into a statement breaks it."""
    if any("'" in (texto or "") for texto in textos):
        raise ErrorEjecucion(SENTENCIA_MAL_HECHA)


class Copia:
    def __init__(self, almacen, local):
        self.almacen, self.local = almacen, local
        self.desde = self.hasta = ""

    def cargar(self, desde, hasta):
        """Copies what belongs to the range, both ends in stored form, and remembers the range."""
        self.local.vaciar()
        self.desde, self.hasta = desde, hasta
        en_rango = self._vencen_dentro()
        parejas = {self._pareja(fila, "NFactura") for fila in en_rango}
        nombres = {plegar(c["NConcepto"]): c["Descripcion"] for c in self.almacen.conceptos.filas}
        self._cargar_facturas(parejas, nombres)
        for fila in self.almacen.bases.filas:
            if self._pareja(fila, "NFactura") in parejas:
                self.local.bases.copiar(tomar(fila, BASE))
        self._cargar_vencimientos(en_rango, nombres)
        self._cargar_previsiones(nombres)
        self._cargar_caja()

    def _vencen_dentro(self):
        return [fila for fila in self.almacen.vencimientos.filas
                if self.desde <= fila["FechaVto"] <= self.hasta]

    @staticmethod
    def _pareja(fila, columna):
        """Concept and number as the joins compare them: the year is not asked for, and blanks count."""
        return plegar(fila["NConcepto"]), plegar(fila[columna])

    def _cargar_facturas(self, parejas, nombres):
        for fila in sorted(self.almacen.facturas.filas, key=lambda f: f["Fecha"] or ""):
            concepto = plegar(fila["NConcepto"])
            if self._pareja(fila, "Factura") not in parejas or concepto not in nombres:
                continue
            nueva = tomar(fila, FACTURA + " Actualizado")
            for columna in ("BIRPF", "TipoIRPF", "IRPF"):
                if nueva[columna] is None or nueva[columna] == 1:
                    nueva[columna] = 0
            self.local.facturas.copiar(nueva | {"Descripcion": nombres[concepto]})

    def _cargar_vencimientos(self, en_rango, nombres):
        """Which of two lines alike in the list's order comes first is left to the engine. The
        embedded one gives them by the first due date of the number that lies in the range."""
        facturadas = {self._pareja(fila, "Factura") for fila in self.almacen.facturas.filas}
        por_pareja = {}
        for fila in self.almacen.vencimientos.filas:
            por_pareja.setdefault(self._pareja(fila, "NFactura"), []).append(fila)
        vistas = set()
        en_rango = sorted(en_rango, key=lambda f: (f["FechaVto"], orden(f["NConcepto"]), orden(f["NFactura"])))
        for guia in en_rango:
            pareja = self._pareja(guia, "NFactura")
            if pareja in vistas or pareja not in facturadas or pareja[0] not in nombres:
                continue
            vistas.add(pareja)
            for fila in sorted(por_pareja[pareja], key=lambda f: (f["Año"], f["FechaVto"])):
                visible = self.desde <= fila["FechaVto"] <= self.hasta
                self.local.vencimientos.copiar(
                    tomar(fila, VENCIMIENTO + " Actualizado")
                    | {"Descripcion": nombres[pareja[0]], "Visible": visible})

    def _cargar_previsiones(self, nombres):
        for fila in sorted(self.almacen.previsiones.filas, key=lambda f: f["Fecha1Vto"] or ""):
            concepto = plegar(fila["NConcepto"])
            if fila["Fecha1Vto"] is not None and fila["Fecha1Vto"] <= self.hasta and concepto in nombres:
                self.local.previsiones.copiar(tomar(fila, PREVISION) | {"Descripcion": nombres[concepto]})

    def _cargar_caja(self):
        for factura in self.local.facturas.filas:
            if "'" in factura["Factura"]:
                continue  # Its statement is refused, and the stretch passes over it.
            for fila in self.almacen.caja.filas:
                if (igual(recortar(fila["Factura"]), recortar(factura["Factura"])) and fila["Factura"]
                        and str(fila["Tipo"]) == factura["NConcepto"] and igual(fila["Año"], factura["Año"])):
                    self.local.caja.copiar(tomar(fila, CAJA))
        for libre in (None, ""):  # The order that the embedded engine gives them in.
            for fila in self.almacen.caja.filas:
                if fila["Factura"] == libre:
                    self.local.caja.copiar(tomar(fila, CAJA))

    def grabar(self, momento, usuario):
        """Replaces the stored rows of the loaded range. On an error nothing stored has changed."""
        sello = {"Actualizado": f"{momento:%Y-%m-%d %H:%M:%S}", "ModificadoPor": usuario}
        self._borrar_rango()
        for origen, destino, columnas in ((self.local.facturas, self.almacen.facturas, FACTURA),
                                          (self.local.bases, self.almacen.bases, BASE),
                                          (self.local.vencimientos, self.almacen.vencimientos, VENCIMIENTO)):
            for fila in origen.filas:
                destino.copiar(tomar(fila, columnas) | sello)
        self.almacen.previsiones.borrar(lambda f: f["Fecha1Vto"] is not None and f["Fecha1Vto"] <= self.hasta)
        for fila in self.local.previsiones.filas:
            self.almacen.previsiones.copiar(tomar(fila, PREVISION) | {"Actualizado": sello["Actualizado"]})
        for fila in self.local.caja.filas:
            guardada = self.almacen.caja.primera(lambda g: all(
                igual(g[c], fila[c]) for c in ("idSucursal", "FechaHora", "Tipo")))
            if guardada:
                guardada.update(sello, Factura=fila["Factura"] or "", Año=fila["Año"] or "")
        self.local.vaciar()

    def _borrar_rango(self):
        parejas = {self._pareja(fila, "NFactura") for fila in self._vencen_dentro()}
        condenadas = [f for f in self.almacen.facturas.filas if self._pareja(f, "Factura") in parejas]
        for factura in condenadas:
            sin_comilla(factura["Factura"])
        for factura in condenadas:
            def suya(fila, columna, factura=factura):
                return (igual(fila["NConcepto"], factura["NConcepto"]) and igual(fila["Año"], factura["Año"])
                        and igual(recortar(fila[columna]), recortar(factura["Factura"])))

            self.almacen.bases.borrar(lambda fila: suya(fila, "NFactura"))
            self.almacen.vencimientos.borrar(lambda fila: suya(fila, "NFactura"))
            self.almacen.facturas.borrar(lambda fila: suya(fila, "Factura"))
