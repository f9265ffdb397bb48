"""The receipts of the entry: their grid, its editor, and their stored rows."""

from alta_cuentas import enmascarar, es_numero, llano, redondo
from mensajes import EXCESO_AL_TECLEAR
from teclas import ESCAPE, INTRO, tecla_importe
from valores import a_vista, mascara, numero, recortar

COLUMNAS = 4


def importe_tecleado(texto):
    """Under the mask; a lone comma is as good as a zero."""
    return enmascarar(texto) if es_numero(texto) else mascara(numero(texto))


class RejillaVtos:
    """Cells and check marks; row 0 is the header."""

    def __init__(self):
        self.celdas, self.marcas = [["Fecha", "Importe", "Pagado", "*"]], [False]
        self.fila, self.columna = 0, 0
        self.filas(5)

    def filas(self, cuantas):
        del self.celdas[cuantas:], self.marcas[cuantas:]
        while len(self.celdas) < cuantas:
            self.anadir()
        self.fila = min(self.fila, cuantas - 1)

    def anadir(self, celdas=None):
        self.celdas.append(list(celdas or [""] * COLUMNAS))
        self.marcas.append(False)
        self.fila = max(1, self.fila)

    def textos(self):
        return [tuple(fila) for fila in self.celdas[1:]]

    def texto(self):
        """As the scenario runner prints it."""
        lineas = [f"MSFVencimientos filas={len(self.celdas)} fila={self.fila} columna={self.columna}"]
        return lineas + [f"{n}: " + "|".join(celdas) + ("[x]" if marca else "")
                         for n, (celdas, marca) in enumerate(zip(self.celdas, self.marcas))]


class Recibos:
    """Part of the screen. `vtos` is the grid, `vtos2` the hidden copy of its texts, `cargados` the
    texts as they were loaded."""

    def vaciar_vtos(self):
        """Whatever was being typed goes with the rows."""
        self.cerrar_editor_vto()
        self.vtos.filas(1)
        self.vtos.filas(5)

    def celda_de_vto(self, fila, columna):
        """A row that a restored set lacks counts as blank."""
        return self.vtos.celdas[fila][columna] if fila < len(self.vtos.celdas) else ""

    def guardar_vencimientos(self):
        self.vtos2 = self.vtos.textos()

    def restaurar_vencimientos(self):
        """The mark of each paid receipt falls on the current row."""
        self.vtos.filas(1)
        for celdas in self.vtos2:
            if celdas[0] == "":
                break
            self.vtos.anadir(celdas)
            if llano(celdas[1] or "0") == llano(celdas[2] or "0"):
                self.ir_vto(self.vtos.fila, 3)
                self.vtos.marcas[self.vtos.fila] = True
        self.vtos.filas(len(self.vtos2) + 1)

    def cargar_vencimientos(self):
        self.vaciar_vtos()
        clave = self.clave_de_entrada()
        recibos = sorted(self.de_clave(self.local.vencimientos, "NFactura", clave), key=lambda r: r["FechaVto"])
        for n, recibo in enumerate(recibos, 1):
            if n >= 5:
                self.vtos.anadir()
            pagado = mascara(recibo["Pagado"])
            en_lista = self._pagado_en_lista(n, recibo)
            if en_lista is not None and en_lista != pagado:
                pagado = en_lista
            importe = mascara(recibo["Importe"])
            self.vtos.celdas[n][:3] = [a_vista(recibo["FechaVto"]), importe, pagado]
            self.vtos.marcas[n] = importe == pagado != "0,00"
        self.cargados = self.vtos.textos()

    def _pagado_en_lista(self, n, recibo):
        """What the list shows as paid: of the first receipt, whatever the current row has."""
        if n == 1:
            return self.fila_actual()[4]
        linea = (recibo["NConcepto"], recortar(recibo["NFactura"]), recibo["Año"], a_vista(recibo["FechaVto"]))
        for fila in range(1, len(self.rejilla.celdas)):
            codigo, factura, anno, fecha = self.rejilla.linea(fila)
            if (codigo, recortar(factura), anno, fecha) == linea:
                return self.rejilla.celdas[fila][4]
        return None

    # Current cell.

    def ir_vto(self, fila, columna):
        vtos = self.vtos
        if (fila, columna) == (vtos.fila, vtos.columna):
            return
        if not self.moviendo_vto:
            self._salir_de_vto()
        vtos.fila, vtos.columna = fila, columna
        if self.moviendo_vto and columna == 3:
            self._comprometer_vto()

    def _salir_de_vto(self):
        celdas, texto = self.vtos.celdas[self.vtos.fila], self.TxtMsf2.texto
        if texto == "":
            return
        if self.vtos.columna == 2:
            self._llevar_a_marca(texto)
        elif self.vtos.columna < 2 and self.TxtMsf2.visible:
            celdas[self.vtos.columna] = importe_tecleado(texto) if self.vtos.columna == 1 else texto

    def _llevar_a_marca(self, texto):
        """What can't be read, or compared with its receipt, fails before anything moves."""
        for leido in (texto, *self.vtos.celdas[self.vtos.fila][1:3]):
            numero(leido)
        self.moviendo_vto = True
        self.ir_vto(self.vtos.fila, 3)
        self.moviendo_vto = False

    def _comprometer_vto(self):
        fila, texto = self.vtos.fila, self.TxtMsf2.texto
        celdas = self.vtos.celdas[fila]
        self.vtos.marcas[fila] = numero(celdas[1]) == redondo(numero(texto))
        celdas[2] = celdas[1] if self.vtos.marcas[fila] else mascara(numero(texto)) if texto else ""

    # Clicks.

    def celda_vto(self, fila, columna):
        if not self.enfocar("MSFVencimientos") or not 0 < fila < len(self.vtos.celdas):
            return False
        self.ir_vto(fila, columna)
        fila, columna = self.vtos.fila, self.vtos.columna
        celdas = self.vtos.celdas[fila]
        if columna == 3 and celdas[0] != "":
            self._alternar_vto(fila, celdas)
        elif columna == 2 and celdas[0] != "":
            if self.TxtMsf2.visible and numero(celdas[1]) < numero(self.TxtMsf2.texto):
                self.puesto.avisar(EXCESO_AL_TECLEAR)
                self.poner_foco("TxtMsf2")
            else:
                self.abrir_vto()
        else:
            self.abrir_vto()
        return True

    def doble_vto(self, fila, columna):
        if self.celda_vto(fila, columna) and self.foco == "MSFVencimientos":
            self.abrir_vto()

    def _alternar_vto(self, fila, celdas):
        self.cerrar_editor_vto()
        if not self.vtos.marcas[fila]:
            self.vtos.marcas[fila] = True
            celdas[2] = celdas[1]
            return
        self.vtos.marcas[fila] = False
        de_lista = self.foto.celdas[fila][4] if fila < len(self.foto.celdas) else ""
        guardado = self.vtos2[fila - 1] if fila <= len(self.vtos2) else ("",) * COLUMNAS
        celdas[2] = "0,00" if de_lista == "" or guardado[2] == guardado[1] else guardado[2]

    # In-place editor.

    def abrir_vto(self):
        vtos = self.vtos
        if vtos.columna in (1, 2) and vtos.celdas[vtos.fila][0] != "":
            self.TxtMsf2.texto = vtos.celdas[vtos.fila][vtos.columna]
            self.TxtMsf2.visible = True
            self.poner_foco("TxtMsf2")
            self.TxtMsf2.todo = True
        else:
            self.cerrar_editor_vto()

    def cerrar_editor_vto(self):
        """An editor that has the focus gives it to its grid."""
        if self.foco == "TxtMsf2":
            self.poner_foco("MSFVencimientos")
        self.TxtMsf2.texto = ""
        self.TxtMsf2.visible = False

    def cerrar_edicion_vencimiento(self):
        if not self.TxtMsf2.visible:
            return
        celdas, texto = self.vtos.celdas[self.vtos.fila], self.TxtMsf2.texto
        if self.vtos.columna == 2:
            self._llevar_a_marca(texto)
        else:
            celdas[self.vtos.columna] = mascara(numero(texto))
        self.cerrar_editor_vto()

    def mover_fila_vto(self, paso):
        fila = self.vtos.fila + paso
        while 1 <= fila < len(self.vtos.celdas):
            if self.vtos.celdas[fila][0] != "" and self.vtos.celdas[fila][1] != "":
                self.ir_vto(fila, self.vtos.columna)
                self.abrir_vto()
                return
            fila += paso
        self.TxtMsf2.todo = True

    def tecla_de_editor_vto(self, codigo):
        if codigo == ESCAPE:
            self.cerrar_editor_vto()
        elif codigo == INTRO:
            self._intro_en_vto()
        else:
            return tecla_importe(self.TxtMsf2, codigo, False)
        return codigo

    def _paga_de_mas(self):
        """Said, if it does."""
        vtos = self.vtos
        if vtos.columna != 2 or numero(self.TxtMsf2.texto) <= numero(vtos.celdas[vtos.fila][1]):
            return False
        self.puesto.avisar(EXCESO_AL_TECLEAR)
        return True

    def tabular_en_vto(self):
        """Takes the amount and stays on the grid."""
        if not self._paga_de_mas():
            self.cerrar_edicion_vencimiento()

    def _intro_en_vto(self):
        vtos = self.vtos
        if self._paga_de_mas():
            return
        if vtos.columna == 2:
            self._comprometer_vto()
        elif vtos.columna == 1 and self.TxtMsf2.texto != "":
            vtos.celdas[vtos.fila][1] = importe_tecleado(self.TxtMsf2.texto)
        if vtos.fila < len(vtos.celdas) - 1 and vtos.celdas[vtos.fila + 1][0] != "":
            self.ir_vto(vtos.fila + 1, vtos.columna)
            self.abrir_vto()
