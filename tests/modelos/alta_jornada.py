"""A day that mixes work on the list with entries in the panel."""

from alta_campos import MIRADOS, PLAZOS
from alta_pantalla import PantallaConPanel
from alta_reparos import calla_entrada
from jornada import Jornada
from pagos import REJILLA


class JornadaConPanel(Jornada):
    """Answers of a step may be several, given in turn; the chooser gives one."""

    clase_de_pantalla = PantallaConPanel
    con_caja = False  # These days leave the screen of cash entries as soon as it opens.

    def __init__(self, negocio, con):
        self.elegible, self.elegidos = None, []
        super().__init__(negocio, con)

    def elegir_concepto(self):
        """The runner keeps one answer: a second call of the same event is cancelled."""
        self.elegidos.append(self.elegible)
        return self.elegible if len(self.elegidos) == 1 else None

    def preguntar(self, texto, flags):
        if isinstance(self.respuesta, tuple):
            todas = self.respuesta
            self.respuesta = todas[len(self.dadas) % len(todas)]
            try:
                return super().preguntar(texto, flags)
            finally:
                self.respuesta = todas
        return super().preguntar(texto, flags)

    def _hacer(self, linea, accion, *argumentos):
        self.elegidos = []
        hecho = super()._hacer(linea, accion, *argumentos)
        if self.pantalla.modal is not None and not self.con_caja:
            super()._hacer("tecla Escape", self.pantalla.modal.tecla, "Escape")
        return hecho

    def _decir_respuestas(self):
        super()._decir_respuestas()
        if self.elegidos:
            self.decir("concepto " + (self.elegidos[0] or "cancelar"))

    def dar(self, paso):
        if not calla_entrada(paso, self.pantalla, self.con):
            super().dar(paso)

    def _con(self, respuestas, concepto):
        self.respuesta, self.elegible = tuple(respuestas), concepto

    # Steps in the panel.

    def paso_teclear(self, widget, texto, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        self._hacer(f'teclear {widget} "{texto}"', self.pantalla.teclear, widget, texto)

    def paso_anadir(self, texto):
        foco = self.pantalla.hoja.get(self.pantalla.foco)
        if foco and foco.clase == "caja":
            self._hacer(f'anadir "{texto}"', self.pantalla.anadir, texto)

    def paso_enfocar(self, widget, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        self._hacer(f"foco {widget}", self.pantalla.enfocar, widget)

    def paso_tecla_panel(self, nombre, respuestas=("no",), concepto=None):
        foco = self.pantalla.foco
        if foco not in self.pantalla.hoja and not (foco == "OptConcepto" and nombre in ("Tab", "Escape")):
            return
        self._con(respuestas, concepto)
        self._hacer(f"tecla {nombre}", self.pantalla.tecla_en_panel, nombre)

    def paso_apretar(self, widget, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        self._hacer(f"pulsar {widget}", self.pantalla.pulsar, widget)

    def paso_elegir(self, elemento, respuestas=("no",), concepto=None):
        self._con(respuestas, concepto)
        self._hacer(f'elegir CboPlazo "{PLAZOS[elemento]}"', self.pantalla.elegir, elemento)

    def paso_vto(self, fila, columna, respuestas=("no",), concepto=None):
        if fila < len(self.pantalla.vtos.celdas):
            self._con(respuestas, concepto)
            self._hacer(f"celda MSFVencimientos {fila} {columna}", self.pantalla.celda_vto, fila, columna)

    def paso_vto_doble(self, fila, columna, respuestas=("no",), concepto=None):
        if fila < len(self.pantalla.vtos.celdas):
            self._con(respuestas, concepto)
            self._hacer(f"doble MSFVencimientos {fila} {columna}", self.pantalla.doble_vto, fila, columna)

    # Steps of the list that the panel changes.

    def paso_doble(self, fila, columna):
        if fila < len(self.pantalla.rejilla.celdas):
            self._hacer(f"doble {REJILLA} {fila} {columna}", self.pantalla.doble, fila, columna)

    def paso_pulsar(self, widget, respuesta="no"):
        if self.pantalla.panel_visible:
            self.paso_apretar(widget)
        else:
            super().paso_pulsar(widget, respuesta)

    def paso_cerrar(self, orden, respuesta):
        if self.pantalla.panel_visible and orden != "cerrar":
            self.decir(orden)
        else:
            super().paso_cerrar(orden, respuesta)

    def paso_fin(self):
        if self.pantalla.panel_visible:
            self.paso_apretar("BtnCancelar")
            self.paso_avisos()
        super().paso_fin()

    # Looks.

    def paso_panel(self):
        if self.pantalla.panel_visible:
            for widget in MIRADOS:
                if MIRADOS[widget] != ["Caption"] or widget == "Label1":
                    self.decir(f"ver {widget}", [self.pantalla.ver(widget)])

    def paso_rotulos(self):
        for widget in MIRADOS:
            if MIRADOS[widget] == ["Caption"]:
                self.decir(f"ver {widget}", [self.pantalla.ver(widget)])

    def paso_vtos(self):
        if self.pantalla.panel_visible:
            self.decir("rejilla MSFVencimientos", self.pantalla.vtos.texto())

    def paso_foco(self):
        """Nobody is left out: whoever closes an editor may send the focus to its grid."""
        if self.pantalla.foco in self.pantalla.hoja:
            self.decir("foco?", [self.pantalla.foco])
