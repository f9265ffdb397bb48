"""The focus, and the two date fields that act when it leaves them."""

from types import SimpleNamespace

from mensajes import FECHA_INCORRECTA, GRABAR_ANTES, RANGO_AL_REVES
from teclas import tecla_fecha
from valores import ErrorEjecucion, a_guardada, es_fecha, normalizar

DESDE, HASTA = "TxtFPrevisionD", "TxtFPrevision"
LARGO_DE_FECHA = 10


class Fechas:
    """Part of the screen. `texto` and `tag` are the fields', `cargado` their texts at the last load;
    `dejando` and `desvio` tell of a leaving that is going on and of where its handlers sent the focus."""

    def enfocar(self, widget):
        """The user goes to a widget; False when a leaving handler sent the focus elsewhere."""
        if self.foco == widget:
            return True
        destino = widget
        if self.foco in (DESDE, HASTA):
            self.dejando, self.desvio = True, None
            try:
                self.dejar(self.foco)
            finally:
                self.dejando = False
                destino = self.desvio or widget
                self._llegar(destino)
        else:
            self._llegar(destino)
        return destino == widget

    def _llegar(self, widget):
        self.foco = widget
        if widget in (DESDE, HASTA):
            self.tag[widget] = self.texto[widget]

    def poner_foco(self, widget):
        """A handler's SetFocus; inside a leaving it takes the place of where the user was going."""
        if self.dejando:
            self.desvio = widget
        elif widget != self.foco:
            self.enfocar(widget)

    def dejar(self, campo):
        if len(self.texto[campo]) not in (8, 10) or not a_guardada(self.texto[campo]):
            self.puesto.avisar(FECHA_INCORRECTA)
            self.poner_foco(campo)
            return
        self.poner_texto(campo, normalizar(self.texto[campo]))
        if campo == HASTA and self.hasta() < self.desde():
            self.puesto.avisar(RANGO_AL_REVES)
            self.poner_foco(HASTA)
            return
        if self.tag[campo] == self.texto[campo]:
            return
        try:
            self.cerrar_edicion()
            cambios = self.hay_cambios()
        except ErrorEjecucion:
            self.texto, self.tag = dict(self.cargado), dict(self.cargado)
            raise
        if cambios and self.puesto.preguntar(GRABAR_ANTES, 4) == "si":
            self.grabar()
        else:
            self.recargar()
        self.tag[campo] = self.texto[campo]

    def poner_texto(self, campo, texto):
        if texto == self.texto[campo]:
            return
        self.texto[campo] = texto
        if len(texto) != 10 or not es_fecha(texto):
            return
        if campo == DESDE:
            self.poner_foco(HASTA)
        else:
            self.dejar(HASTA)

    def teclear_fecha(self, campo, texto):
        """Selects all and types a date: only its last key can make it one."""
        if self.enfocar(campo):
            caja = SimpleNamespace(texto="", todo=False)
            for letra in texto:
                self.texto[campo] = caja.texto
                codigo = tecla_fecha(caja, ord(letra))
                caja.texto = (caja.texto + chr(codigo))[:LARGO_DE_FECHA]
            self.texto[campo] = self.texto[campo] if texto else ""
            self.poner_texto(campo, caja.texto)
