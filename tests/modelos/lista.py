"""The merged list: due dates and occurrences of forecasts as rows of the grid."""

from dataclasses import dataclass
from datetime import date

from valores import a_vista, en_linea, leer_fecha, mascara, orden, recortar, sumar, igual

COLUMNAS = 8
MOMENTO_CERO = date(1899, 12, 30)
FRANJA_A, FRANJA_B, PREVISTO, ELEGIDA = 0xD3E8E9, 0xFCDDDA, 0xD11405, (14794931, 0xFFFFFF)


@dataclass
class Linea:
    concepto: str
    fecha: str
    factura: str
    importe: object
    pagado: object
    codigo: str
    anno: str
    prevision: bool = False

    def marcada(self):
        return (not self.prevision and self.importe is not None and self.pagado is not None
                and self.importe == self.pagado)

    def se_oculta(self):
        """Without "Ver Pagados": what is paid to the cent, and what nobody began to pay."""
        return self.pagado is None or mascara(self.pagado) == mascara(self.importe)

    def celdas(self, por_fecha):
        fecha, concepto = a_vista(self.fecha), self.concepto or ""
        primeras = [fecha, concepto] if por_fecha else [concepto, fecha]
        return primeras + [self.factura, mascara(self.importe), mascara(self.pagado), "",
                           self.codigo, self.anno or ""]


def ocurrencias(prevision, desde, hasta):
    """The dates that a forecast lists between two stored dates. One that began before the range
    loses its first date in it, one that starts in it shows its first date whatever the end, and
    the end itself is never listed. A forecast that can't be stepped ends there."""
    unidad = {1: "d", 2: "m"}.get(prevision["Tipo"], "yyyy")
    cada, actual = prevision["Cada"], leer_fecha(prevision["Fecha1Vto"])
    fechas = []
    if actual is None:
        return fechas

    def paso(fecha):
        siguiente = sumar(fecha, unidad, cada) if cada and cada > 0 else None
        return None if siguiente == MOMENTO_CERO else siguiente  # Its text is that of an hour.

    def texto(fecha):
        return f"{fecha.year:04}{fecha:%m%d}"

    if texto(actual) >= desde:
        fechas.append(texto(actual))
    while actual and texto(actual) < desde:
        actual = paso(actual)
    while actual and texto(actual) <= hasta:
        actual = paso(actual)
        if actual and desde <= texto(actual) < hasta:
            fechas.append(texto(actual))
    return fechas


def fundir(local, desde, hasta, con_previsiones, por_fecha):
    """The lines of the list, in its order; lines alike in it stay as they came."""
    lineas = [Linea(v["Descripcion"], v["FechaVto"], recortar(v["NFactura"]), v["Importe"], v["Pagado"],
                    v["NConcepto"], v["Año"]) for v in local.vencimientos.filas if v["Visible"]]
    if con_previsiones:
        for prevision in local.previsiones.filas:
            borradas = {l["FechaVto"] for l in local.lapidas.filas
                        if igual(l["NConcepto"], prevision["NConcepto"])}
            lineas += [Linea(prevision["Descripcion"], fecha, "", prevision["Importe"], None,
                             prevision["NConcepto"], "", True)
                       for fecha in ocurrencias(prevision, desde, hasta) if fecha not in borradas]
    claves = {"fecha": lambda l: orden(l.fecha), "concepto": lambda l: orden(l.concepto),
              "codigo": lambda l: orden(l.codigo)}
    nombres = ("fecha", "concepto", "codigo") if por_fecha else ("concepto", "codigo", "fecha")
    return sorted(lineas, key=lambda l: tuple(claves[n](l) for n in nombres))


class Rejilla:
    """Cells, check marks and colours (back and fore, one for a whole row); row 0 is the header.
    `por_fecha` tells where the dates stand."""

    def __init__(self, reposo):
        self.reposo = reposo
        self.por_fecha = True
        self.celdas, self.marcas = [[""] * COLUMNAS], [False]
        self.colores = [None]
        self.fila = self.columna = 0

    def llenar(self, lineas, por_fecha):
        self.por_fecha = por_fecha
        cabecera = ["Fecha Vto", "Concepto"] if por_fecha else ["Concepto", "Fecha Vto"]
        self.celdas = [cabecera + ["NºFactura", "Importe", "Pagado", "*", "", ""]]
        self.celdas += [linea.celdas(por_fecha) for linea in lineas]
        self.marcas = [False] + [linea.marcada() for linea in lineas]
        while len(self.celdas) < self.reposo:
            self.celdas.append([""] * COLUMNAS)
            self.marcas.append(False)
        self.colores = [None] + [(FRANJA_B if n % 2 else FRANJA_A, PREVISTO) for n in range(len(self.celdas) - 1)]
        for n, linea in enumerate(lineas, 1):
            self.colores[n] = self.colores[n][0], PREVISTO if linea.prevision else 0
        self.al_final()

    def al_final(self):
        """Painting leaves the last cell current."""
        self.fila, self.columna = len(self.celdas) - 1, COLUMNAS - 1

    def quitar(self, fila):
        """Takes a row out and puts a blank one at the end; from there down the stripes swap, and
        the blank one goes on with them."""
        for parte, vacia in ((self.celdas, [""] * COLUMNAS), (self.marcas, False), (self.colores, (None, 0))):
            del parte[fila]
            parte.append(vacia)
        for n in range(fila, len(self.celdas)):
            antes = self.colores[n - 1 if n == len(self.celdas) - 1 else n]
            self.colores[n] = FRANJA_B if antes and antes[0] == FRANJA_A else FRANJA_A, self._letra(n)
        self.al_final()

    def _letra(self, fila):
        return 0 if self.pagable(fila) else PREVISTO

    def despintar(self):
        """The current row takes its stripe again, by the row above it."""
        arriba = self.colores[self.fila - 1]
        franja = FRANJA_B if self.fila > 1 and arriba[0] == FRANJA_A else FRANJA_A
        self.colores[self.fila] = franja, self._letra(self.fila)

    def elegir(self):
        self.colores[self.fila] = ELEGIDA

    def fecha(self, fila):
        return self.celdas[fila][0 if self.por_fecha else 1]

    def linea(self, fila):
        """What a row stands for, whatever the order: concept, number, year, due date."""
        celdas = self.celdas[fila]
        return celdas[6], celdas[2], celdas[7], self.fecha(fila)

    def pagable(self, fila):
        return self.celdas[fila][2] != ""

    def copia(self):
        otra = Rejilla(self.reposo)
        otra.por_fecha = self.por_fecha
        otra.celdas = [list(fila) for fila in self.celdas]
        return otra

    def texto(self):
        """As the scenario runner prints it."""
        lineas = [f"MSFPagos filas={len(self.celdas)} fila={self.fila} columna={self.columna}"]
        for n, (celdas, marca) in enumerate(zip(self.celdas, self.marcas)):
            lineas.append(f"{n}: " + "|".join(en_linea(c) + ("[x]" if i == 5 and marca else "")
                                             for i, c in enumerate(celdas)))
        return lineas
