"""A day that knows the two screens of cash entries."""

from alta_jornada import JornadaConPanel
from auto_pantalla import TIPOS_DE_IVA
from caja_reparos import calla_con_caja

DE_OTRA = ("en_otra", "teclear_otra", "anadir_otra", "tecla_otra", "elegir_otra", "mover", "barra_otra")
SIEMPRE = (*DE_OTRA, "reloj", "panel", "rotulos", "vtos", "foco", "avisos", "trabajo", "guardado", "rejilla", "totales",
           "otras", "detras", "fin")


class JornadaDeCaja(JornadaConPanel):
    """What lies behind a modal screen is passed over. A step of another screen has no name of it: it is the
    one that is open."""

    con_caja = True

    def dar(self, paso):
        modal = self.pantalla.modal
        if modal is None and paso[0] in (*DE_OTRA, "detras") or modal is not None and paso[0] not in SIEMPRE:
            return
        if calla_con_caja(paso, self.pantalla, self.con):
            return
        super().dar(paso)

    @property
    def modal(self):
        return self.pantalla.modal

    @property
    def prefijo(self):
        return self.modal.nombre + "."

    # Steps in the screen that is open.

    def paso_en_otra(self, verbo, widget, respuestas=("no",), concepto=None):
        """A click, or the focus put there."""
        self._con(respuestas, concepto)
        if self.modal.hay(widget):
            accion = self.modal.pulsar if verbo == "pulsar" else self.modal.enfocar
            self._hacer(f"{verbo} {self.prefijo}{widget}", accion, widget)

    def paso_teclear_otra(self, widget, texto, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        if self.modal.hay(widget):
            self._hacer(f'teclear {self.prefijo}{widget} "{texto}"', self.modal.teclear, widget, texto)

    def paso_tecla_otra(self, nombre, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        self._hacer(f"tecla {nombre}", self.modal.tecla, nombre)

    def paso_anadir_otra(self, texto):
        if self.modal.es_texto(self.modal.foco):
            self._hacer(f'anadir "{texto}"', self.modal.anadir, texto)

    def paso_elegir_otra(self, elemento, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        if self.modal.hay("CboIVA"):
            self._hacer(f'elegir {self.prefijo}CboIVA "{TIPOS_DE_IVA[elemento]}"', self.modal.elegir, elemento)

    def paso_mover(self, valor):
        if self.modal.hay("VScroll1"):
            self._hacer(f"valor {self.prefijo}VScroll1 {valor}", self.modal.mover, valor)

    def paso_barra_otra(self):
        self._hacer(f"barra {self.modal.nombre}", self.modal.cerrar_barra)

    def paso_detras(self, orden):
        """On the main screen, where nothing comes of it."""
        self.decir(orden)

    def paso_fin(self):
        if self.modal is not None:
            self.paso_tecla_otra("Escape")
            self.paso_avisos()
        super().paso_fin()

    # Looks.

    def paso_foco(self):
        if self.modal is None and self.pantalla.foco == "BtnAutCaja":
            self.decir("foco?", ["BtnAutCaja"])
        elif self.modal is None:
            super().paso_foco()
        else:
            self.decir("foco?", ["ninguno" if self.modal.foco is None else self.prefijo + self.modal.foco])

    def paso_otras(self):
        """Which screens are loaded, and what is on them."""
        otras = [otra for otra in dict.fromkeys((self.pantalla.caja, self.modal)) if otra is not None]
        self.decir("pantallas", ["FrmTesvaraGastos 1"] + [f"{p.nombre} {int(p is self.modal)}" for p in otras])
        for otra in otras:
            for visto in otra.ver():
                self.decir(f"ver {otra.nombre}.{visto.split(' ')[0]}", [f"{otra.nombre}.{visto}"])
