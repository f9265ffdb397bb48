"""The printer chooser: a strip of destinations, one of them chosen, and the text that it answers with."""

from caja_miradas import en_comillas

NULA, PANTALLA = "Null Impresora", "Pantalla"
A_LA_VISTA = 5


class BuscoImpresora:
    """One showing. `nombres` are those of the destinations, the screen first; `al_cerrar` gets the answer."""

    nombre = "frmBuscoImpresora"

    def __init__(self, nombres, al_cerrar):
        self.nombres, self.al_cerrar = nombres, al_cerrar
        self.primera = self.elegido = 0

    def a_la_vista(self, n):
        return self.primera <= n < self.primera + A_LA_VISTA

    def pulsar(self, widget):
        if widget in ("Boton1", "Boton2"):
            self.al_cerrar(self.nombres[self.elegido] if widget == "Boton1" else NULA)
        elif widget == "ImgDer":
            self.primera += self.primera + A_LA_VISTA - 1 <= len(self.nombres)
        elif widget == "ImgIzq":
            self.primera -= self.primera > 0
        else:
            n = int(widget[widget.index("(") + 1:-1])
            if self.a_la_vista(n):
                self.elegido = n

    def cerrar(self):
        self.al_cerrar(NULA)

    def ver(self):
        """What `ver` tells of each widget, of what is compared."""
        for n, nombre in enumerate(self.nombres):
            vista = f"Visible={int(self.a_la_vista(n))}"
            yield f'Img({n}) Tag="{"1" if n == self.elegido else ""}" {vista}'
            yield f"LblImpre({n}) Caption={en_comillas(nombre)} {vista}"
        yield 'Boton1 Caption="Aceptar" Enabled=1'
        yield 'Boton2 Caption="Cancelar" Enabled=1'
        yield 'Barra1 Caption="Selección Impresora"'
