"""Payments in the grid: its current cell and events, the editor laid over it, the check marks."""

from types import SimpleNamespace

from mensajes import EXCESO_AL_TECLEAR
from teclas import tecla_importe
from valores import mascara, numero

EDITOR, REJILLA = "TxtMsf", "MSFPagos"
LARGO_DE_IMPORTE = 15  # what the editor takes of a typed amount


class Pagos:
    """Part of the screen. `editor` is the text typed in the box over the cell."""

    # Current cell.

    def ir(self, fila, columna):
        """The current cell goes to another one, with the events of the grid."""
        if (fila, columna) == (self.rejilla.fila, self.rejilla.columna):
            return
        self._salir_de_celda()
        self.rejilla.fila, self.rejilla.columna = fila, columna
        self._llegar_a_celda()

    def _salir_de_celda(self):
        rejilla = self.rejilla
        if self.editor != "":
            self._dejar_importe(rejilla)
        rejilla.despintar()

    def _dejar_importe(self, rejilla):
        """Only a filler row that the click passes through on its way to the first one meets the
        second rule: an editor with zero in it leaves its zero there."""
        celdas = rejilla.celdas[rejilla.fila]
        if rejilla.pagable(rejilla.fila) and rejilla.columna != 5:
            self._llevar_importe()
        elif rejilla.columna == 4 and self.editor_visible and numero(self.editor) <= numero(celdas[3]):
            celdas[4] = mascara(numero(self.editor))

    def _llegar_a_celda(self):
        rejilla = self.rejilla
        if rejilla.celdas[rejilla.fila][0] == "":
            primera = next((n for n in range(1, len(rejilla.celdas)) if rejilla.celdas[n][0] == ""), None)
            if primera:
                self.ir(primera, rejilla.columna)
        if self.editor_visible:
            self.abrir_edicion()
        rejilla.elegir()

    def _llevar_importe(self):
        """Takes the editor's amount into the row, mark and pending total, and leaves column 5
        current; what is no amount leaves all in place."""
        fila = self.rejilla.fila
        celdas = self.rejilla.celdas[fila]
        tecleado = mascara(numero(self.editor))
        self.rejilla.columna = 5
        if numero(celdas[3]) == numero(tecleado):
            self.rejilla.marcas[fila] = True
            self.pendiente += numero(celdas[4]) - numero(celdas[3])
            celdas[4] = celdas[3]
        else:
            self.rejilla.marcas[fila] = False
            antes = numero(celdas[4])
            celdas[4] = tecleado if self.editor else "0"
            self.pendiente += antes - numero(celdas[4])
        self.rotular()

    def rotular(self):
        self.rotulo = "Total Pendiente: " + mascara(self.pendiente)
        self.rotulo_visible = self.pendiente >= 1.0

    # In-place editor.

    def abrir_edicion(self):
        rejilla = self.rejilla
        if rejilla.columna == 4 and rejilla.pagable(rejilla.fila):
            self.editor, self.editor_visible = rejilla.celdas[rejilla.fila][4], True
            self.foco = EDITOR
        else:
            self.ocultar_editor()

    def ocultar_editor(self):
        self.editor, self.editor_visible = "", False
        if self.foco == EDITOR:
            self.foco = REJILLA

    def cerrar_edicion(self):
        if not self.editor_visible:
            return
        self._llevar_importe()
        self.rejilla.celdas[self.rejilla.fila][4] = mascara(numero(self.editor))
        self.ocultar_editor()
        self.ir(self.rejilla.fila, 4)

    def teclear_importe(self, texto):
        caja = SimpleNamespace(texto="", todo=False)
        for letra in texto:
            codigo = tecla_importe(caja, ord(letra), False)
            if codigo and len(caja.texto) < LARGO_DE_IMPORTE:
                caja.texto += chr(codigo)
        self.editor = caja.texto

    def escape(self):
        self.ocultar_editor()

    def intro(self):
        rejilla = self.rejilla
        if numero(self.editor) > numero(rejilla.celdas[rejilla.fila][3]):
            self.puesto.avisar(EXCESO_AL_TECLEAR)
            return
        if rejilla.fila >= len(rejilla.celdas) - 2 or rejilla.columna != 4:
            return
        siguiente = rejilla.celdas[rejilla.fila + 1]
        if siguiente[2] != "" and siguiente[0] != "":
            self.ir(rejilla.fila + 1, 4)
            self.abrir_edicion()

    def flecha(self, paso):
        """An arrow in the editor: to the next row that is whole, over forecasts and fillers."""
        fila = self.rejilla.fila + paso
        while 1 <= fila < len(self.rejilla.celdas):
            if all(self.rejilla.celdas[fila][n] != "" for n in (0, 1, 2)):
                self.ir(fila, 4)
                return
            fila += paso

    def flecha_en_rejilla(self, paso):
        """Out of a column that isn't shown, where a list made anew leaves it, to the first cell."""
        if self.rejilla.columna > 5:
            self.ir(1, 0)
            return
        fila = self.rejilla.fila + paso
        if 1 <= fila < len(self.rejilla.celdas):
            self.ir(fila, self.rejilla.columna)

    # Clicks on the grid.

    def celda(self, fila, columna):
        """A click; False when it was lost: to a date field that keeps the focus, or with the row,
        which the leaving of a date field took away."""
        if not self.enfocar(REJILLA) or fila >= len(self.rejilla.celdas):
            return False
        self.ir(fila, columna)
        celdas = self.rejilla.celdas[self.rejilla.fila]
        viva = celdas[2] != "" and celdas[0] != ""
        if self.rejilla.columna == 5 and viva:
            self._alternar_pago(self.rejilla.fila, celdas)
        elif self.rejilla.columna == 4 and viva:
            if self.editor_visible:
                if numero(celdas[3]) < numero(self.editor):
                    self.puesto.avisar(EXCESO_AL_TECLEAR)
                else:
                    self.abrir_edicion()
        else:
            self.ocultar_editor()
        return True

    def doble(self, fila, columna):
        if self.celda(fila, columna) and self.rejilla.pagable(self.rejilla.fila):
            self.abrir_edicion()

    def _alternar_pago(self, fila, celdas):
        self.ocultar_editor()
        if not self.rejilla.marcas[fila]:
            self.pendiente += numero(celdas[4]) - numero(celdas[3])  # One below zero stops here.
            self.rejilla.marcas[fila] = True
            celdas[4] = celdas[3]
        else:
            self.rejilla.marcas[fila] = False
            importe, pagado = self._guardado_de(fila)
            celdas[4] = "0,00" if pagado in ("", importe) else pagado
            self.pendiente += numero(celdas[3]) - numero(celdas[4])
        self.rotular()

    def _guardado_de(self, fila):
        """Amount and paid of the row's own line in the snapshot, wherever it stands there."""
        linea = self.rejilla.linea(fila)
        for otra in range(1, len(self.foto.celdas)):
            if self.foto.linea(otra) == linea:
                return self.foto.celdas[otra][3], self.foto.celdas[otra][4]
        return "", ""
