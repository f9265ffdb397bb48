"""The report target: a current point, a font, a colour, and what was drawn with them, page by page."""

from itertools import product

from papel_letra import sin_control, alto, ancho

LETRA = "Bookman Old Style"
ANCHO, ALTO = 21.0, 29.7
EMPATE = 1e-9  # centimetres from a third decimal of 5 within which either rounding is right


class Renglon(str):
    """A line that `informe` prints; `otras` are those that a coordinate halfway between two allows as well."""

    otras = frozenset()


def renglon(antes, medidas, despues):
    posibles = [_redondeos(medida) for medida in medidas]
    todos = [" ".join([antes, *elegidos, despues]) for elegidos in product(*posibles)]
    hecho = Renglon(todos[0])
    hecho.otras = frozenset(todos[1:])
    return hecho


def _redondeos(medida):
    exacto = f"{medida:.2f}"
    return [exacto, *({f"{medida + EMPATE:.2f}", f"{medida - EMPATE:.2f}"} - {exacto, "-0.00"})]


class Hoja:
    """`en_pantalla` tells a page of the preview from the printer."""

    def __init__(self, en_pantalla):
        self.en_pantalla = en_pantalla
        self.paginas, self.renglones = 1, []
        self._empezar()

    def _empezar(self):
        self.x = self.y = 0.0
        self.puntos, self.negrita, self.color = 8, False, 0

    def otra(self):
        """A page of the printer goes on with font and colour, one of the preview has its own."""
        self.paginas += 1
        if self.en_pantalla:
            self._empezar()
        self.x = self.y = 0.0

    def ancho(self, texto):
        return ancho(texto, self.puntos, self.negrita)

    def alto(self):
        return alto(self.puntos, self.negrita)

    def escribir(self, texto="", acaba=True):
        """At the current point. An empty text draws nothing."""
        if texto != "":
            escapado = sin_control(texto).replace("\\", "\\\\").replace('"', '\\"')
            self._anotar("texto", (self.x, self.y),
                         f'"{escapado}" {LETRA} {self.puntos} {int(self.negrita)} {self.color}')
        self.x += self.ancho(texto)
        if acaba:
            self.x = 0.0
            self.y += self.alto()

    def alinear(self, x, texto, lado, acaba=False):
        self.x = x if lado == "I" else x - self.ancho(texto)
        self.escribir(texto, acaba)

    def linea(self, x1, y1, x2, y2):
        self._anotar("linea", (x1, y1, x2, y2), str(self.color))
        self.x, self.y = x2, y2

    def caja(self, x1, y1, x2, y2, color, llena):
        self._anotar("caja", (x1, y1, x2, y2), f"{color} {int(llena)}")
        self.x, self.y = x2, y2

    def _anotar(self, clase, medidas, resto):
        self.renglones.append(renglon(f"p{self.paginas} {clase}", medidas, resto))
