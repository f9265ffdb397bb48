"""What a user who knows the screen of cash entries sets out to do, each as a list of steps."""


TECLAS = ["Tab", "Tab", "Espacio", "Espacio", "Abajo", "Abajo", "Abajo", "Arriba", "Intro"]
DETRAS = ["pulsar BotonNuevo", "pulsar BtnAceptar", "foco TxtIFra", "pulsar TxtNFra", "pulsar Chk0",
          "barra FrmTesvaraGastos", "celda MSFPagos 1 5"]


class PlanesDeCaja:
    """Part of the user."""

    # Entries that cash entries pay.

    def con_caja(self):
        """A new entry made of the cash entries of its concept."""
        azar = self.azar
        pasos = self._fila_elegida() + [self._apretar("BotonNuevo")] + self._concepto()
        pasos += self._factura() if azar.randrange(4) == 0 else []
        pasos += self._campo("TxtNFra", self._numero()) if azar.randrange(2) else []
        pasos += self._en_la_caja()
        pasos += self._campo("TxtNFra", self._numero()) if azar.randrange(5) else []
        return self._grabada(pasos + self._despues_de_la_caja() + self._final())

    def caja_de_una_guardada(self):
        """A stored invoice, or a forecast's row, is given cash entries or loses them."""
        azar = self.azar
        filas = self._filas(lambda celdas: celdas[2] != "" or azar.randrange(4) == 0)
        pasos = [("celda", azar.choice(filas), azar.choice([0, 1, 3]))] if filas else []
        pasos += [self._apretar("BotonModificar")] + self._en_la_caja() + self._despues_de_la_caja()
        if azar.randrange(3) == 0:
            pasos += self._campo("TxtNFra", self._numero()) + self._en_la_caja()
        return self._grabada(pasos + self._final())

    def pagada_por_la_caja(self):
        """An invoice that cash entries made is opened again, and its marks are looked at or changed."""
        facturas = {a["Factura"].strip(" ") for a in self.jornada.local.caja.filas if a["Factura"]}
        filas = self._filas(lambda celdas: celdas[2] in facturas)
        if not filas:
            return self.con_caja()
        azar = self.azar
        pasos = [("celda", azar.choice(filas), 1), self._apretar("BotonModificar"), ("otras",)]
        pasos += self._en_la_caja() if azar.randrange(4) else []
        return self._grabada(pasos + self._despues_de_la_caja() + self._final())

    def facturar_y_rehusar(self):
        """An invoice with stored receipts is to be made of cash entries, and its questions are refused."""
        azar = self.azar
        de_caja = {str(a["Tipo"]) for a in self.jornada.local.caja.filas}
        filas = self._filas(lambda celdas: celdas[2] != "" and celdas[6] in de_caja)
        if not filas:
            return self.caja_de_una_guardada()
        fila = azar.choice(filas)
        pasos = [("celda", fila, 5)] if azar.randrange(4) == 0 else []
        pasos += [("celda", fila, 1), self._apretar("BotonModificar")]
        pasos += self._sin_querer_todo(self._otros_terminos()) if azar.randrange(3) == 0 else []
        for _ in range(azar.choice([1, 1, 2, 3])):
            pasos += [self._apretar("BotonCaja"), self.marcar, self.marcar]
            pasos += [("en_otra", "pulsar", "BtnFacturar", azar.choice([("no",), ("no",), ("si",)]), None), ("otras",)]
            pasos += self._sin_querer_todo(self._otros_terminos()) if azar.randrange(3) == 0 else []
        return self._grabada(pasos + self._final())

    def _sin_querer_todo(self, pasos):
        return [paso if callable(paso) else self._sin_querer(paso) for paso in pasos]

    def otro_concepto(self):
        """The concept is settled twice; marks made for the first one may be there yet."""
        azar = self.azar
        pasos = self._fila_elegida() + [self._apretar("BotonNuevo")] + self._concepto() + self._en_la_caja()
        pasos += [self.con_respuestas("apretar", "CmdCon")] if azar.randrange(3) == 0 else self._concepto()
        return pasos + [("otras",)] + self._en_la_caja() + self._campo("TxtNFra", self._numero()) + self._final()

    def _fila_elegida(self):
        """A row of the list that was chosen keeps the cash screen from being made anew."""
        return [("celda", self.fila(), 1)] if self.azar.randrange(3) == 0 else []

    def _numero(self):
        azar = self.azar
        if azar.randrange(10) == 0:
            return self.texto_de("TxtNFra")
        facturas = self.jornada.local.facturas.filas
        if facturas and azar.randrange(8) == 0:
            return azar.choice(facturas)["Factura"].strip(" ")
        return f"K{azar.randrange(60)}"

    def _en_la_caja(self):
        """Into the cash screen, and out of it by one of its ways."""
        azar = self.azar
        pasos = [self._apretar("BotonCaja"), ("otras",)]
        pasos += [self.marcar] * azar.choice([0, 1, 1, 2, 3, 3, 5])
        if azar.randrange(4) == 0:
            pasos += [self.teclas_en_caja] * azar.randint(1, 12)
        pasos += [self.recorrer] * azar.randrange(2)
        salida = azar.choice([("en_otra", "pulsar", "BtnFacturar")] * 5
                             + [("en_otra", "pulsar", "BtnAceptar"), ("tecla_otra", "Escape")])
        pasos += [self.con_respuestas(*salida), ("otras",)]
        return pasos + (self._en_la_caja() if azar.randrange(5) == 0 else [])

    def _despues_de_la_caja(self):
        """Terms and amounts that spread once more what the till paid."""
        azar = self.azar
        if azar.randrange(2):
            return []
        pasos = []
        for _ in range(azar.randint(1, 2)):
            pasos += azar.choice([self._aplazado, self._a_la_vista, self._otros_terminos, self._retoques,
                                  self._terminos])()
        return pasos

    # Steps in the cash screen, told when they are due.

    def _filas_de_caja(self):
        modal = self.jornada.pantalla.modal
        return len(modal.filas) if modal is self.jornada.pantalla.caja and modal is not None else 0

    def marcar(self):
        cuantas = self._filas_de_caja()
        if not cuantas:
            return ("otras",)
        return ("en_otra", "pulsar", f"LblSeleccion({self.azar.randrange(cuantas)})")

    def recorrer(self):
        """Up and down a list that doesn't fit, with the keys and the bar."""
        azar, cuantas = self.azar, self._filas_de_caja()
        if cuantas < 12:
            return ("otras",)
        maximo = self.jornada.pantalla.modal.maximo
        for _ in range(azar.randint(1, 4)):
            pasos = [("mover", azar.choice([0, maximo, azar.randrange(maximo + 1)]))] if azar.randrange(3) == 0 else []
            pasos += [("tecla_otra", azar.choice(["Abajo", "Arriba"]))] * azar.randint(1, 15)
            self.plan[:0] = [*pasos, ("otras",)]
        return ("en_otra", "foco", f"LblSeleccion({azar.randrange(cuantas)})")

    def teclas_en_caja(self):
        azar, cuantas = self.azar, self._filas_de_caja()
        suerte = azar.randrange(20)
        if suerte == 0 and cuantas:
            return ("mover", azar.randrange(-1, self.jornada.pantalla.modal.maximo + 2))
        if suerte == 1 and cuantas:
            fila = f"LblSeleccion({azar.randrange(cuantas)})"
            return ("en_otra", "foco", azar.choice([fila, "BtnFacturar", "BtnAceptar"]))
        if suerte == 2:
            return ("barra_otra",)
        return self.con_respuestas("tecla_otra", azar.choice(TECLAS))

    def en_la_caja(self):
        """Without a plan."""
        suerte = self.azar.randrange(10)
        if suerte < 4:
            return self.marcar()
        if suerte < 7:
            return self.teclas_en_caja()
        if suerte == 7:
            return ("detras", self.azar.choice(DETRAS))
        return self.con_respuestas("en_otra", "pulsar", self.azar.choice(["BtnFacturar", "BtnAceptar"]))
