"""The widgets of the entry panel, and the focus over panel and list."""

from fechas import DESDE, HASTA, Fechas

BLANCO, CON_FOCO, INACTIVO = 16777215, 10865355, 13887721


def avisa(nombre, suceso):
    """A property that tells the screen of another value; of the same one nothing."""
    guardado = "_" + nombre

    def leer(self):
        return getattr(self, guardado)

    def poner(self, valor):
        if getattr(self, guardado) != valor:
            setattr(self, guardado, valor)
            self.dueno.ha_cambiado(self, suceso)

    return property(leer, poner)


class Control:
    """`clase` is one of caja, casilla, opcion, lista, boton, rotulo, rejilla. `todo`: the whole text
    is selected, else the caret stands at its end."""

    def __init__(self, dueno, nombre, clase, rotulo="", largo=0):
        self.dueno, self.nombre, self.clase, self.rotulo, self.largo = dueno, nombre, clase, rotulo, largo
        self._texto, self._valor, self._elegido = "", False, -1
        self._activo = self._visible = True
        self.tag, self.color, self.todo = "", BLANCO, False
        self.toma_foco = clase != "rotulo" and nombre != "BtnCancelar"

    texto = avisa("texto", "cambio")
    elegido = avisa("elegido", "click")
    activo = avisa("activo", "alcance")
    visible = avisa("visible", "alcance")

    @property
    def valor(self):
        return self._valor

    @valor.setter
    def valor(self, valor):
        if self._valor == valor:
            return
        self._valor = valor
        if self.clase == "opcion" and valor:
            for otra in self.dueno.de_clase("opcion"):
                if otra is not self:
                    otra._valor = False
        if self.clase == "casilla" or valor:
            self.dueno.ha_cambiado(self, "click")

    def vaciar(self, con_tag=False):
        self.texto = ""
        if con_tag:
            self.tag = ""


class Foco(Fechas):
    """Part of the screen. `hoja` has the widgets of the panel by name. A handler that runs while a
    widget is left sends the focus elsewhere by taking the place of where it was going."""

    def alcanzable(self, widget):
        if widget in self.hoja:
            return self.panel_visible and self.hoja[widget].activo and self.hoja[widget].visible
        return not self.panel_visible or widget == "OptConcepto"

    def enfocar(self, widget):
        if not self.alcanzable(widget):
            return False
        if self.dejando:
            self.desvio = widget
            return False
        if self.foco == widget:
            return True
        if self.foco is None or self.foco in self.saliendo:
            self._acabar(widget)
            return self.foco == widget
        self.saliendo.append(self.foco)
        self.dejando, self.desvio = True, None
        try:
            self._al_dejar(self.foco)
        finally:
            self.dejando = False
            self.saliendo.pop()
            self._acabar(self.desvio or widget)
        return self.foco == widget

    def poner_foco(self, widget):
        self.enfocar(widget)

    def _acabar(self, destino):
        self.foco = destino if self.alcanzable(destino) else None
        if self.foco in self.hoja:
            self.al_llegar(self.hoja[self.foco])
        elif self.foco:
            self._llegar(self.foco)

    def _al_dejar(self, widget):
        if widget in (DESDE, HASTA):
            self.dejar(widget)
        elif widget in self.hoja:
            self.al_dejar(self.hoja[widget])

    def revisar_foco(self):
        """The focus goes from what can no longer be reached, and nobody has it."""
        viejo = self.foco
        if viejo is None or self.alcanzable(viejo) or viejo in self.saliendo:
            return
        self.foco = None
        self._al_dejar(viejo)
