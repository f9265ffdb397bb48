"""Keys of the entry panel: what each does in a widget."""

from alta_campos import CADENAS, DE_ENTEROS, DE_FECHA, DE_IMPORTE, ORDEN
from teclas import BORRAR, ESCAPE, ESPACIO, INTRO, tecla_fecha, tecla_importe

TECLAS = {"Intro": INTRO, "Escape": ESCAPE, "Espacio": ESPACIO, "Borrar": BORRAR}


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
        if nombre == "Tab":
            self._tabular()
        elif nombre == "Escape" and self.foco != "TxtMsf2":
            self.pulsar("BtnCancelar")
        elif nombre in ("Arriba", "Abajo"):
            self._flecha(self.hoja[self.foco], -1 if nombre == "Arriba" else 1)
        elif self.hoja[self.foco].clase == "caja":
            self._tecla_en_caja(self.hoja[self.foco], TECLAS[nombre])
        else:
            self._tecla_en_lo_demas(self.hoja[self.foco], TECLAS[nombre])

    def _tabular(self):
        if self.foco == "TxtMsf2":
            return self.tabular_en_vto()
        desde = ORDEN.index(self.foco) + 1 if self.foco in ORDEN else 0
        self.enfocar(next(n for n in ORDEN[desde:] + ORDEN[:desde] if self.alcanzable(n)))

    def _tecla_en_caja(self, caja, codigo):
        if codigo == ESPACIO:
            self._escribir_letra(caja, " ")
        elif self._pasar_tecla(caja, codigo) == BORRAR:
            caja.texto = "" if caja.todo else caja.texto[:-1]
            caja.todo = False

    def _tecla_en_lo_demas(self, control, codigo):
        codigo = self._pasar_tecla(control, codigo)
        if control.clase == "boton" and codigo in (INTRO, ESPACIO) or (
                control.clase in ("casilla", "opcion") and codigo == ESPACIO):
            self.pulsar(control.nombre)
        elif control.clase == "rejilla" and codigo == ESPACIO:
            self.celda_vto(self.vtos.fila, self.vtos.columna)
        elif control.clase == "rejilla" and codigo == INTRO:
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
