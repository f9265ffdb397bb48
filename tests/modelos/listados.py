"""The preview: pages one under the other at a zoom, under a view that a bar moves. Measures are twips."""

PORCENTAJES = ["50 %", "100 %", "Encajar en Pantalla"]
PAGINA = 11906, 16838
BARRA, OPCIONES, TAPA, ARRIBA_DE_TAPA = 420, 480, 60, 900
HUECO, MARGEN = 100, 200


class Listados:
    """One showing. `pantalla` and `referencia` are the sizes of the screen and of the one designed for:
    only its title bar keeps its height on another one."""

    nombre = "frmListados"

    def __init__(self, paginas, pantalla, referencia):
        self.paginas, (self.ancho, alto) = paginas, pantalla
        otra = pantalla[0] != referencia[0]

        def escalar(medida):
            return medida * alto // referencia[1] if otra else medida

        self.vista = alto - BARRA - escalar(OPCIONES) - MARGEN
        self.borde = escalar(ARRIBA_DE_TAPA) + escalar(TAPA)
        self.porcentaje = None
        self.elegir("100 %")

    def elegir(self, porcentaje):
        """The one that is chosen already is no choice."""
        if porcentaje == self.porcentaje:
            return
        self.porcentaje = porcentaje
        self.alto_de_pagina = {"Encajar en Pantalla": self.vista, "100 %": PAGINA[1]}.get(porcentaje, PAGINA[1] * 50 / 100)
        self.alto = self.paginas * self.alto_de_pagina + (self.paginas - 1) * HUECO
        self.ancho_de_pagina = self.alto_de_pagina * PAGINA[0] / PAGINA[1]
        self.izquierda = (self.ancho - self.ancho_de_pagina) / 2
        self.maximo = int((self.alto - self.vista) / (self.vista / 10))
        self.valor, self.arriba = 0, self.borde
        self.con_barra = self.vista < self.alto

    def mover(self, valor):
        """The user can't move a bar that isn't seen."""
        if self.con_barra:
            valor = min(max(valor, 0), self.maximo)
            if valor != self.valor:
                self.valor = valor
                self._deslizar()

    def _deslizar(self):
        if self.valor == self.maximo:
            self.arriba = self.borde - (self.alto - self.vista)
        elif self.valor == 0:
            self.arriba = self.borde
        else:
            self.arriba = self.borde - self.vista * self.valor // 10

    def paginas_en(self):
        """Where each page stands in the panel."""
        return [(int(self.alto_de_pagina) + HUECO) * n for n in range(self.paginas)]

    def ver(self):
        """What `ver` tells of each widget, of what is compared."""
        yield f'CbxPor Text="{self.porcentaje}" ListIndex={PORCENTAJES.index(self.porcentaje)}'
        yield f"Scroll Value={self.valor} Min=0 Max={self.maximo} Visible={int(self.con_barra)}"
        yield "PicTapa BackColor=10865355"
        yield 'Label1 Caption=" Porcentaje:"'
        yield 'Barra1 Caption="Impresión Pantalla"'
        for n in sorted({0, self.paginas - 1}):
            yield f"PicList({n}) Visible=0"
