"""The screen of cash entries: its rows and marks, its bar, its keys, and the invoice made of what is marked."""

from dataclasses import dataclass
from datetime import datetime

from alta_cuentas import llano, val
from caja_miradas import en_comillas
from valores import mascara

ALTO, ARRIBA, FILA = 6400, 555, 540
DE_OBSERVACIONES = 35
A_LA_VISTA = 10  # rows below the first one that is seen whole
MOMENTO_CERO = datetime(1899, 12, 30)


def texto_de_momento(momento):
    """A date and time as text: midnight has no time, and the first day of all no date."""
    hora = f"{momento.hour}:{momento:%M:%S}"
    fecha = f"{momento:%d/%m}/{momento.year:04}"
    if momento.date() == MOMENTO_CERO.date():
        return hora
    return fecha if hora == "0:00:00" else f"{fecha} {hora}"


@dataclass
class Fila:
    momento: object = None
    tipo: str = ""
    observaciones: str = ""
    marcada: bool = False
    visible: bool = True

    def etiqueta(self):
        return "" if self.momento is None else texto_de_momento(self.momento)


class PantallaDeCaja:
    """One load of it. `madre` is the main screen; `total` is what each click on "Facturar" adds to."""

    nombre = "FrmPagosCaja"

    def __init__(self, madre):
        self.madre, self.foco, self.ultima = madre, None, 0
        self.concepto = madre.TxtNConcepto.texto
        self.valor = self.maximo = 0
        self.alto, self.total = ALTO, 0.0
        madre.importe_caja = 0.0
        self.filas = [Fila()]
        self._llenar(madre.apuntes_del_concepto())
        self._medir()

    def _llenar(self, apuntes):
        """Entries of one moment are one row. A first one at the moment zero makes none."""
        if not apuntes:
            self.filas[0].visible = False
        anterior = "0:00:00"
        for n, apunte in enumerate(apuntes):
            texto = texto_de_momento(apunte["FechaHora"])
            if texto == anterior:
                continue
            if n:
                self.filas.append(Fila())
            fila, anterior = self.filas[-1], texto
            fila.momento, fila.tipo = apunte["FechaHora"], str(apunte["Tipo"])
            fila.observaciones = (apunte["Observaciones"] or "")[:DE_OBSERVACIONES]
            fila.marcada = not self.madre.es_nueva() and bool(apunte["Factura"])

    def _medir(self):
        cuantas = len(self.filas)
        necesario = FILA * (cuantas - 1) + 900
        if self.filas[0].visible and necesario > self.alto:
            self.maximo = -(-((cuantas + 1) * FILA - self.alto) // FILA)
            self.alto = necesario

    def arriba(self):
        """Where the panel of the rows stands under its frame."""
        if self.valor == self.maximo:
            return ARRIBA - (self.alto - ALTO)
        return ARRIBA - self.valor * FILA

    # The user.

    def enfocar(self, nombre):
        if nombre in self._paradas():
            self.foco = nombre
            if nombre.startswith("LblSeleccion"):
                self.ultima = int(nombre[13:-1])
                self._traer_a_la_vista(self.ultima)
            return True
        return False

    def _paradas(self):
        filas = [f"LblSeleccion({n})" for n, fila in enumerate(self.filas) if fila.visible]
        return [*filas, "BtnFacturar", "BtnAceptar"]

    def _traer_a_la_vista(self, fila):
        """The least that brings a row whole into the frame; at its maximum the bar shows the last ones."""
        primera = len(self.filas) - 1 - A_LA_VISTA if self.maximo and self.valor == self.maximo else self.valor
        if fila < primera:
            self.valor = fila
        elif fila > primera + A_LA_VISTA:
            self.valor = fila - A_LA_VISTA

    def hay(self, nombre):
        """Whether there is such a widget, seen or not."""
        if nombre.startswith("LblSeleccion"):
            return int(nombre[13:-1]) < len(self.filas)
        return nombre in ("BtnFacturar", "BtnAceptar", "VScroll1")

    @staticmethod
    def es_texto(_):
        return False

    def cerrar_barra(self):
        """Its title bar does nothing."""

    def pulsar(self, nombre):
        if nombre.startswith("LblSeleccion"):
            fila = self.filas[int(nombre[13:-1])]
            if fila.visible:
                fila.marcada = not fila.marcada
        elif self.enfocar(nombre):
            (self.facturar if nombre == "BtnFacturar" else self.salir)()

    def mover(self, valor):
        self.valor = min(max(valor, 0), self.maximo)

    def tecla(self, nombre):
        if nombre == "Escape":
            self.salir()
        elif nombre == "Tab":
            self._tabular()
        elif self.foco is None:
            return
        elif self.foco.startswith("LblSeleccion"):
            paso = {"Arriba": -1, "Abajo": 1}.get(nombre)
            if paso and 0 <= self.ultima + paso < len(self.filas):
                self.enfocar(f"LblSeleccion({self.ultima + paso})")
            elif nombre == "Espacio":
                self.pulsar(self.foco)
        elif nombre in ("Intro", "Espacio"):
            self.pulsar(self.foco)

    def _tabular(self):
        """The rows are one stop."""
        filas = [f"LblSeleccion({self.ultima})"] if self.filas[0].visible else []
        orden = [*filas, "BtnFacturar", "BtnAceptar"]
        self.enfocar(orden[(orden.index(self.foco) + 1) % len(orden)] if self.foco in orden else orden[0])

    # The invoice.

    def facturar(self):
        """The question of a regeneration that is refused makes the screen anew, and this goes on with its sum."""
        madre, total = self.madre, self.total
        for fila in self.filas:
            if fila.tipo == "":
                continue
            hallados = madre.apuntes_de(fila)
            if fila.marcada and hallados:
                total += float(hallados[0]["Importe"] or 0)
        madre.opt("Vista", True, True)
        texto = madre.TxtIFra.texto
        antes = llano(texto) if val(texto) != 0 else 0.0
        if not madre.hay_importe:
            madre.TxtIFra.texto = mascara(total)
        madre.importe_caja = total
        if madre.hay_importe:
            madre.TxtIFra.texto = mascara(antes)
        else:
            madre.generar_vista()
            madre.Chk0.valor = True
            for nombre in ("Chk16", "Chk7", "Chk4"):
                madre.hoja[nombre].valor = False
            madre.TxtB0.texto = mascara(total)
        # A click that failed on the way is not counted by the next one.
        self.total = total
        self.salir()

    def salir(self):
        """Shown again it begins in its rows."""
        if self.madre.caja is self:
            self.enfocar(f"LblSeleccion({self.ultima})")
        self.madre.cerrar_modal()

    # Looks.

    def ver(self):
        """What `ver` tells of each widget, of what is compared."""
        for n, fila in enumerate(self.filas):
            vista = f"Visible={int(fila.visible)}"
            yield f"DivFondo({n}) {vista}"
            yield f"DivSel({n}) Tag={en_comillas(fila.tipo)} Visible={int(fila.marcada)}"
            yield f"LblSeleccion({n}) {vista}"
            rotulo = "Fecha:" + fila.etiqueta() if fila.momento else ""
            etiqueta = en_comillas(fila.etiqueta())
            yield f"LblTxt({n}) Caption={en_comillas(rotulo)} Tag={etiqueta} {vista}"
            yield f"LblTxt2({n}) Caption={en_comillas(fila.observaciones)} {vista}"
        yield f"VScroll1 Value={self.valor} Min=0 Max={self.maximo}"
        yield 'BtnFacturar Caption="Facturar" Enabled=1'
        yield 'BtnAceptar Caption="Salir" Enabled=1'
        yield 'Barra1 Caption="Apuntes de Caja"'
