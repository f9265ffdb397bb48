"""Keys of the entry panel: the filters of dates and amounts, and what a key does in a field."""

import re

from alta_campos import CADENAS, DE_ENTEROS, DE_FECHA, DE_IMPORTE

BORRAR, INTRO, ESCAPE, ESPACIO = 8, 13, 27, 32
TECLAS = {"Intro": INTRO, "Escape": ESCAPE, "Espacio": ESPACIO, "Borrar": BORRAR}


def tecla_fecha(caja, tecla):
    if tecla in (BORRAR, INTRO, ESCAPE) or tecla == ord("/"):
        return tecla
    if not chr(tecla).isdigit():
        return 0
    if not caja.todo and re.fullmatch(r"(\d\d|[^/]*/\d\d)", caja.texto):
        caja.texto += "/"
    return tecla


def tecla_importe(caja, tecla, solo_enteros):
    """A second separator makes the first one the thousands' point where three figures follow it."""
    antes = "" if caja.todo else caja.texto
    if tecla in (BORRAR, INTRO, ESCAPE) or chr(tecla).isdigit():
        return tecla
    if tecla == ord(",") or tecla == ord(".") and not solo_enteros:
        if "," not in antes:
            return ord(",")
        if not solo_enteros and re.fullmatch(r"[^,]*,\d{3}", antes):
            caja.texto = antes.replace(",", ".")
            return ord(",")
        return 0
    return tecla if tecla == ord("-") and not solo_enteros and antes == "" else 0


class Teclas:
    """Part of the screen."""

    def teclear(self, nombre, texto):
        """Goes to a field, selects all, and types key by key; the empty text erases. Each of these is an
        event of its own: an error of one doesn't keep the next from coming."""
        self.puesto.suceso(lambda: self.enfocar(nombre))
        if self.foco != nombre:
            return
        caja = self.hoja[nombre]
        caja.todo = True
        if texto == "":
            self.puesto.suceso(lambda: self._borrar_todo(caja))
        self._escribir(texto)

    def _borrar_todo(self, caja):
        if self._pasar_tecla(caja, BORRAR):
            caja.texto = ""

    def anadir(self, texto):
        self.hoja[self.foco].todo = False
        self._escribir(texto)

    def _escribir(self, texto):
        for letra in texto:
            caja = self.hoja.get(self.foco)
            if caja is None or caja.clase != "caja":
                return
            self.puesto.suceso(lambda: self._escribir_letra(caja, letra))

    def _escribir_letra(self, caja, letra):
        codigo = self._pasar_tecla(caja, ord(letra))
        antes = "" if caja.todo else caja.texto
        if codigo and not (caja.largo and len(antes) >= caja.largo):
            caja.todo = False
            caja.texto = antes + chr(codigo)

    def _pasar_tecla(self, control, codigo):
        """What the handler of a key leaves of it; nothing when it moved the focus."""
        codigo = self.al_teclear(control, codigo)
        return codigo if self.foco == control.nombre else 0

    def tecla_en_panel(self, nombre):
        control = self.hoja[self.foco]
        if nombre in ("Arriba", "Abajo"):
            self._flecha(control, -1 if nombre == "Arriba" else 1)
            return
        codigo = self._pasar_tecla(control, TECLAS[nombre])
        if not codigo:
            return
        if control.clase == "boton" or control.clase in ("casilla", "opcion") and codigo == ESPACIO:
            self.pulsar(control.nombre)
        elif control.clase == "rejilla":
            if codigo == ESPACIO:
                self.celda_vto(self.vtos.fila, self.vtos.columna)
            elif codigo == INTRO:
                self.doble_vto(self.vtos.fila, self.vtos.columna)

    def _flecha(self, control, paso):
        if control.nombre == "TxtMsf2":
            self.mover_fila_vto(paso)
        elif control.clase == "rejilla":
            if 1 <= self.vtos.fila + paso < len(self.vtos.celdas):
                self.ir_vto(self.vtos.fila + paso, self.vtos.columna)
        elif control.clase == "opcion":
            self.pulsar("OptVista" if control.nombre == "OptAplazado" else "OptAplazado")
        elif control.clase == "lista" and 0 <= control.elegido + paso <= 2:
            control.elegido += paso

    def al_teclear(self, control, codigo):
        """The KeyPress of each widget: its filter, and where Enter goes."""
        nombre = control.nombre
        if nombre == "TxtMsf2":
            return self.tecla_de_editor_vto(codigo)
        if nombre == "TxtFVista":
            return self.tecla_de_vista(codigo)
        if nombre == "TxtNRecibos" and codigo == ord("0"):
            return 0
        if nombre in DE_FECHA:
            codigo = tecla_fecha(control, codigo)
        elif nombre in DE_ENTEROS or nombre in DE_IMPORTE:
            codigo = tecla_importe(control, codigo, nombre in DE_ENTEROS)
        if codigo == INTRO:
            self._intro(nombre)
        return codigo

    def _intro(self, nombre):
        if nombre == "TxtDesde":
            self.comprobar_desde()
        elif nombre == "TxtCadencia":
            self.intro_en_cadencia()
        else:
            if nombre == "TxtIFra":
                self.de_prevision_a_factura()
            self.seguir_cadena(nombre)

    def seguir_cadena(self, nombre):
        for siguiente in CADENAS.get(nombre, "").split():
            if self.hoja[siguiente].activo:
                self.poner_foco(siguiente)
                return
