"""Roads that an entry typed with sense seldom takes, each as a list of steps. A step that depends on
what is on the screen by then is a function that gives it."""

from alta_cuentas import llano
from valores import mascara

QUITABLES = ("TxtIFra", "TxtNFra", "TxtFFra", "TxtDesde", "TxtCada", "TxtFVista", "TxtIPrev", "OptGenerar")
DE_PLAZO = ("TxtNRecibos", "TxtDias", "TxtCadencia")
TECLAS_DE = {
    "caja": ["Tab", "Tab", "Intro", "Intro", "Borrar"], "casilla": ["Tab", "Tab", "Espacio"],
    "opcion": ["Tab", "Tab", "Espacio", "Arriba", "Abajo"], "lista": ["Abajo", "Arriba", "Tab", "Intro"],
    "rejilla": ["Tab", "Intro", "Espacio", "Abajo", "Abajo", "Arriba"], "boton": ["Tab", "Tab", "Espacio"]}
BOTON_GRABAR = ("pulsar", "BotonAceptar", "si")


def miles_fuera(texto):
    return texto.replace(".", "")


class Caminos:
    """Part of the user."""

    def rodeo(self):
        return self.azar.choice([
            self.por_teclas, self.pagada_y_abierta, self.con_rehusos, self.recibos_a_mano, self.varias_del_concepto,
            self.hueca, self.negativa if "raros" in self.con else self.hueca, self.en_cadena, self.tipo_despues,
            self.dejada_a_medias, self.sobre_lo_abierto, self.por_quitar])()

    def _grabada(self, pasos):
        """What was accepted is committed, often looked at, and sometimes loaded again."""
        azar = self.azar
        pasos = pasos + ([BOTON_GRABAR] if azar.randrange(3) else [])
        if azar.randrange(2):
            pasos += [("guardado", tabla) for tabla in ("facturas", "bases", "vencimientos", "previsiones")]
        return pasos + ([("pulsar", "BotonCancelar")] if azar.randrange(3) == 0 else [])

    def _tecla(self, nombre):
        return self.con_respuestas("tecla_panel", nombre)

    def _apretar(self, widget):
        return self.con_respuestas("apretar", widget)

    # Without the mouse.

    def por_teclas(self):
        pasos = [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", self.codigo() or "x")
        pasos += [self.en_el_foco] * self.azar.randint(8, 40)
        return self._grabada(pasos + [self.con_respuestas("enfocar", "BtnAceptar"), self._tecla("Intro")])

    def en_el_foco(self):
        """What the keyboard does in the widget where it finds itself."""
        azar, foco = self.azar, self.jornada.pantalla.foco
        control = self.jornada.pantalla.hoja.get(foco)
        clase = control.clase if control else ""
        if clase == "caja" and foco != "TxtMsf2" and azar.randrange(3) == 0:
            texto = self._total() if foco == "TxtIFra" else self.texto_de(foco)
            return self.con_respuestas("teclear", foco, texto)
        return self._tecla(azar.choice(TECLAS_DE.get(clase, ["Tab"])))

    # From the list.

    def _pagable(self):
        filas = self._filas(lambda celdas: celdas[2] != "")
        return self.azar.choice(filas) if filas else 1

    def _pago(self, fila):
        if self.azar.randrange(2):
            return [("celda", fila, 5)]
        return [("doble", fila, 4), ("importe", self.azar.choice(["0", "5", "1,5", self.dinero()]))]

    def pagada_y_abierta(self):
        """Payments that stand only in the list, and the invoice that they are of."""
        azar, fila = self.azar, self._pagable()
        pasos = self._pago(fila) + (self._pago(self._pagable()) if azar.randrange(2) else [])
        pasos += [("celda", azar.choice([fila, fila, self._pagable()]), 1)] if azar.randrange(3) else []
        pasos.append(self._apretar("BotonModificar"))
        return self._grabada(pasos + self._retoques() + self._final())

    def con_rehusos(self):
        """A stored invoice gets other terms, which are refused."""
        pasos = [("celda", self._pagable(), 1), self._apretar("BotonModificar")]
        for _ in range(self.azar.randint(1, 4)):
            pasos += [paso if callable(paso) else self._sin_querer(paso) for paso in self._otros_terminos()]
        return self._grabada(pasos + self._retoques() + self._final())

    def _sin_querer(self, paso):
        return (*paso[:-2], ("no",), paso[-1]) if self.azar.randrange(4) else paso

    def _otros_terminos(self):
        azar, suerte = self.azar, self.azar.randrange(6)
        if suerte == 0:
            return [self._apretar(azar.choice(["OptVista", "OptAplazado"]))]
        if suerte == 1:
            return self._campo("TxtIFra", self._total())
        if suerte == 2:
            return self._campo("TxtFVista", self.dia())
        campo = azar.choice(DE_PLAZO)
        return self._campo(campo, azar.choice(["1", "2", "3", "4", "5", "15", "30"]), intro=azar.randrange(2) == 0)

    def en_cadena(self):
        """Occurrences of a forecast become invoices, each with the date of its row."""
        azar, filas = self.azar, self._filas(lambda celdas: celdas[2] == "")
        if not filas:
            return self.por_teclas()
        pasos = []
        for _ in range(azar.randint(1, 2)):
            fila = azar.choice(filas[:4])
            fecha = self.jornada.pantalla.rejilla.fecha(fila)
            pasos += [("celda", fila, 1), self._apretar("BotonModificar")]
            pasos += self._campo("TxtFFra", fecha) + self._campo("TxtNFra", f"C{azar.randrange(90)}")
            pasos += [("enfocar", "TxtIFra"), self._tecla("Intro")] + (
                self._campo("TxtIFra", self._total()) if azar.randrange(2) else [])
            pasos += [self._apretar("Chk16")] * azar.randrange(2)
            pasos.append(("apretar", "BtnAceptar", azar.choice([("si",), ("si",), ("no",)]), None))
        return self._grabada(pasos)

    def sobre_lo_abierto(self):
        """The panel is opened over an open editor, or from a date field that is left for it."""
        azar, fila = self.azar, self._pagable()
        if azar.randrange(2):
            pasos = [("doble", fila, 4), ("importe", azar.choice(["0", "", "3", ",", self.dinero()]))]
        else:
            pasos = [self.fecha()]
        abrir = [self._apretar("BotonNuevo"), self._apretar("BotonModificar"), self._apretar("BotonModificar"),
                 ("doble", azar.choice(self._filas(lambda celdas: celdas[2] == "") or [1]), 5)]
        return self._grabada(pasos + [azar.choice(abrir)] + self._retoques() + self._final())

    # Receipts.

    def _en_editor(self, fila, columna, texto):
        """An amount typed in a receipt, and one of the ways out of its editor."""
        salida = self.azar.choice(["Intro", "Intro", "Arriba", "Abajo", "Tab", "Escape", None])
        return [self.con_respuestas("vto_doble", fila, columna), self.con_respuestas("teclear", "TxtMsf2", texto)] + (
            [self._tecla(salida)] if salida else [])

    def recibos_a_mano(self):
        """Receipts that the user makes over, the sum kept: moved amounts, payments and marks."""
        azar, cuantos = self.azar, self.azar.randint(2, 6)
        if azar.randrange(3):
            total = azar.randrange(20, 900)
            pasos = [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", self.codigo() or "x")
            pasos += self._campo("TxtNFra", f"R{azar.randrange(90)}") + self._campo("TxtIFra", str(total))
            pasos += [self._apretar("OptAplazado")] + self._campo("TxtNRecibos", str(cuantos))
            pasos += self._campo("TxtDias", "15") + self._campo("TxtCadencia", azar.choice(["7", "30"]))
        else:
            pasos = [("celda", self._pagable(), 1), self._apretar("BotonModificar")]
        pasos += [self.mover_importe, self.hacia_el_otro] * azar.randrange(2)
        for _ in range(azar.randrange(4)):
            pasos += self._en_editor(azar.randint(1, cuantos), 2, azar.choice(["0", "", "1", "2,5", self.dinero()]))
        for _ in range(azar.randrange(4)):
            fila = azar.randint(1, cuantos)
            pasos += [self.con_respuestas("vto", fila, 3)] * azar.randint(1, 2)
        return self._grabada(pasos + self._final())

    def _fila_de_vto(self, n):
        celdas = self.jornada.pantalla.vtos.celdas
        return celdas[n] if n < len(celdas) and celdas[n][1] != "" else None

    def mover_importe(self):
        """What is taken from the first receipt is put to the second one."""
        return self._cambiar_importe(1, -1.25)

    def hacia_el_otro(self):
        return self._cambiar_importe(2, 1.25)

    def _cambiar_importe(self, n, diferencia):
        celdas = self._fila_de_vto(n)
        if celdas is None or not self.jornada.pantalla.panel_visible:
            return ("avisos",)
        self.plan[:0] = self._en_editor(n, 1, miles_fuera(mascara(abs(llano(celdas[1]) + diferencia))))
        return self.plan.pop(0)

    # Entries that lack something, or have it the other way round.

    def varias_del_concepto(self):
        azar, codigo = self.azar, self.codigo() or "x"
        numero, pasos = azar.randrange(50), []
        for n in range(azar.randint(2, 3)):
            pasos += [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", codigo)
            if azar.randrange(4) == 0:
                anno = self.jornada.reloj.year - 1
                pasos += self._campo("TxtFFra", f"{self.jornada.reloj:%d/%m}/{anno}")
            pasos += self._campo("TxtNFra", f"V{numero + n * azar.randrange(2)}") + self._una_tasa()
            pasos += (self._prevision() if azar.randrange(2) else []) + [self._apretar("BtnAceptar")]
        return self._grabada(pasos + (self.modificar() if azar.randrange(2) else []))

    def negativa(self):
        azar = self.azar
        total = azar.choice(["-0,01", "-5", "-1.234,50", "-0,001"])
        pasos = [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", self.codigo() or "x")
        pasos += self._campo("TxtNFra", azar.choice(["", "AB1"])) + self._campo("TxtIFra", total)
        pasos += [self._apretar(marca) for marca in azar.choice([[], ["Chk16", "Chk0"], ["Chk0"], ["Chk15"]])]
        if azar.randrange(2):
            pasos += self._campo(azar.choice(["TxtB16", "TxtB0", "TxtI16", "TxtBIRPF"]), azar.choice([total, "-1", "0"]))
        return self._grabada(pasos + (self._aplazado() if azar.randrange(2) else []) + self._final())

    def hueca(self):
        """Terms, a base or its VAT are missing when the entry is accepted."""
        azar = self.azar
        pasos = [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", self.codigo() or "x")
        pasos += self._campo("TxtNFra", f"H{azar.randrange(90)}")
        if azar.randrange(2):
            pasos += self._campo("TxtIFra", "0") + [self._apretar("OptAplazado")]
            for campo in azar.sample(DE_PLAZO, 2):
                pasos += self._campo(campo, azar.choice(["2", "3", "15"]), intro=False)
            return self._grabada(pasos + self._final())
        tasa = azar.choice(["16", "7", "4"])
        pasos += [self._apretar("Chk16"), self._apretar("Chk" + tasa)] if tasa != "16" else []
        pasos += self._campo("TxtIFra", azar.choice(["0", "104"]))
        pasos += self._campo("TxtB" + tasa, azar.choice(["", "100"])) + self._campo("TxtI" + tasa, azar.choice(["4", ""]))
        return self._grabada(pasos + self._final())

    def tipo_despues(self):
        """The rate of the withholding changes when its base is there already."""
        azar = self.azar
        pasos = [self._apretar("BotonNuevo")] + self._campo("TxtConcepto", self.codigo() or "x")
        pasos += self._campo("TxtNFra", f"T{azar.randrange(90)}") + self._campo("TxtIFra", azar.choice(["101", "1.010,5"]))
        pasos += [self._apretar("Chk16")] if azar.randrange(4) == 0 else []
        pasos += [self._apretar("Chk15")] + self._campo("TxtBIRPF", azar.choice(["100", "1.000,50", ""]))
        for _ in range(azar.randint(1, 3)):
            pasos += self._campo("TxtTipoIRPF", azar.choice(["1", "18", "15", "7,5", "0", "", ",5"]))
        pasos += self._campo("TxtB16", azar.choice(["100", "1.000,50"])) if azar.randrange(2) else []
        return self._grabada(pasos + self._final())

    def por_quitar(self):
        """A modification takes away what there was: the forecast, the number, the date, the total."""
        azar = self.azar
        filas = self._filas(lambda celdas: True)
        pasos = [("celda", azar.choice(filas), 1)] if filas else []
        pasos.append(self._apretar("BotonModificar"))
        for _ in range(azar.randint(1, 2)):
            campo = azar.choice(QUITABLES)
            quitar = [self._apretar(campo)] if campo == "OptGenerar" else self._campo(campo, "", azar.randrange(2) == 0)
            pasos += quitar
        return self._grabada(pasos + self._final())

    def dejada_a_medias(self):
        """Escape wherever the entry happens to be, and another one after it."""
        azar = self.azar
        plan = azar.choice([self.nueva, self.modificar, self.prevista, self.recibos_a_mano])()
        pasos = plan[:azar.randint(1, len(plan))] + [self._tecla("Escape")] * azar.randint(1, 2)
        return pasos + azar.choice([self.nueva, self.modificar, self.prevista])()
