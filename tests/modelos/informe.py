"""The report: what the list shows, row for row, on sheets of A4."""

from dataclasses import dataclass
from datetime import datetime

from lista import PREVISTO
from papel_hoja import ALTO, ANCHO

AZUL, GRANATE, NEGRO = 0xFF0000, 128, 0
DE_CABECERA = -2147483633  # the colour of the grid's fixed rows
DE_GRUPO = 0xC0E0FF
FIRMA = "Norvalia Software - Qzlm "
ROTULO_DEL_TOTAL = "Total Pagos: .............................."
DIAS = ("lunes", "martes", "miércoles", "jueves", "viernes", "sábado", "domingo")
MESES = ("enero", "febrero", "marzo", "abril", "mayo", "junio", "julio", "agosto", "septiembre", "octubre",
         "noviembre", "diciembre")
TITULOS = ((1.5, "I"), (7, "I"), (11.5, "I"), (15, "I"), (ANCHO - 1, "D"))
DETALLE = ((1.2, "I"), (3.8, "I"), (13.1, "D"), (16.4, "D"), (ANCHO - 1, "D"))


@dataclass
class Vista:
    """What the report reads: the cells with the header, which rows are of a group, and the texts."""

    celdas: list
    de_grupo: set
    desde: str
    hasta: str
    total: str
    pendiente: str
    hoy: datetime
    pagina: str


def fecha_larga(dia):
    return f"{DIAS[dia.weekday()]}, {dia.day} de {MESES[dia.month - 1]} de {dia.year}"


class Informe:
    def __init__(self, hoja, vista):
        self.hoja, self.vista = hoja, vista
        self.pagina, self.limite = 0, 0.0

    def imprimir(self):
        hoja = self.hoja
        self._empezar_hoja()
        for n, celdas in enumerate(self.vista.celdas[1:], 1):
            # The cells are in the grid's own font, which is bold.
            hoja.negrita = True
            if hoja.y + hoja.alto() >= self.limite:
                self._pie()
                hoja.otra()
                self._empezar_hoja()
            if n in self.vista.de_grupo:
                self._grupo(celdas)
            else:
                self._detalle(celdas)
        hoja.negrita = False
        self._pie()
        return hoja

    def _empezar_hoja(self):
        self._cabecera()
        self.hoja.escribir()
        self._titulos()
        self.hoja.y += 0.2

    def _cabecera(self):
        hoja, vista = self.hoja, self.vista
        if hoja.en_pantalla:
            hoja.caja(0.0, 0.0, ANCHO - 0.03, ALTO - 0.03, NEGRO, False)
        hoja.y = 1.0
        hoja.puntos, hoja.negrita = 14, True
        titulo = "TESVARA DE GASTOS"
        hoja.x = (ANCHO - (hoja.ancho(titulo) + 2)) / 2
        hoja.escribir(titulo)
        hoja.linea(1.0, hoja.y, ANCHO - 1, hoja.y)
        hoja.negrita, hoja.puntos = False, 12
        hoja.y += 0.1
        hoja.color = AZUL
        hoja.alinear(ANCHO - 1, fecha_larga(vista.hoy), "D", True)
        hoja.color = NEGRO
        hoja.escribir()
        hoja.x = 1.0
        hoja.escribir(f"Previsión Desde:  {vista.desde}   Hasta:   {vista.hasta}")
        hoja.escribir()
        hoja.x = 1.0
        hoja.color = AZUL
        hoja.escribir(f"{ROTULO_DEL_TOTAL} {vista.total}  ", False)
        hoja.color = GRANATE
        hoja.alinear(ANCHO - 1, vista.pendiente, "D", True)
        hoja.color = NEGRO
        self.limite = ALTO - hoja.alto()

    def _titulos(self):
        hoja = self.hoja
        hoja.puntos, hoja.negrita = 9, True
        hoja.caja(1.0, hoja.y - 0.1, ANCHO - 1, hoja.y + hoja.alto() + 0.1, DE_CABECERA, True)
        hoja.y -= hoja.alto() + 0.1
        self._renglon(TITULOS, self.vista.celdas[0])
        hoja.negrita = False

    def _renglon(self, columnas, celdas):
        for n, (x, lado) in enumerate(columnas):
            self.hoja.alinear(x, celdas[n], lado, n == len(columnas) - 1)

    def _detalle(self, celdas):
        hoja = self.hoja
        hoja.color = PREVISTO if celdas[2] == "" else NEGRO
        hoja.puntos, hoja.negrita = 10, False
        self._renglon(DETALLE, celdas)

    def _grupo(self, celdas):
        hoja = self.hoja
        hoja.puntos = 8
        hoja.x = (ANCHO - (hoja.ancho(celdas[0]) + 2)) / 2
        hoja.escribir(celdas[0], False)
        hoja.y += 0.4

    def _pie(self):
        hoja = self.hoja
        self.pagina += 1
        hoja.puntos, hoja.color, hoja.negrita = 9, NEGRO, False
        texto = f"{FIRMA}{self.vista.pagina} {self.pagina}"
        hoja.x, hoja.y = (ANCHO - hoja.ancho(texto)) / 2, self.limite
        hoja.escribir(texto)
