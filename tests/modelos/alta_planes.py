"""Entries typed with sense, each as a list of steps."""

from alta_cuentas import llano
from valores import a_vista, mascara


def sin_puntos(texto):
    return texto.replace(".", "")


class Planes:
    """Part of the user."""

    def _campo(self, campo, texto, intro=True):
        return [self.con_respuestas("teclear", campo, texto)] + (
            [self.con_respuestas("tecla_panel", "Intro")] if intro else [])

    def nueva(self):
        azar = self.azar
        return [self.con_respuestas("apretar", "BotonNuevo"), *self._concepto(), *self._factura(),
                *(self._prevision() if azar.randrange(4) == 0 else []), *self._final()]

    def repetida(self):
        """An entry with the concept and number of bases that are there already."""
        azar, bases = self.azar, self.jornada.local.bases.filas
        if not bases:
            return self.nueva()
        base = azar.choice(bases)
        anno = int(base["Año"]) + azar.choice([0, 0, 0, 1])
        pasos = [self.con_respuestas("apretar", "BotonNuevo"), *self._campo("TxtConcepto", base["NConcepto"])]
        pasos += self._campo("TxtFFra", f"{self.jornada.reloj:%d/%m}/{anno}")
        pasos += self._campo("TxtNFra", base["NFactura"].strip(" "))
        filas = [n for n in self._filas(lambda celdas: celdas[2] != "") if azar.randrange(2)]
        elegida = [("celda", azar.choice(filas), 1)] if filas else []
        return elegida + pasos + azar.choice([self._una_tasa, self._exenta, self._dos_tasas])() + self._final()

    def _concepto(self):
        azar, suerte = self.azar, self.azar.randrange(10)
        if suerte == 0:
            return [("apretar", "CmdCon", ("no",), self.codigo())]
        if suerte == 1:
            return [("teclear", "TxtConcepto", "luz"), ("tecla_panel", "Intro", ("no",), self.codigo())]
        return self._campo("TxtConcepto", self.codigo() or "x")

    def _factura(self):
        """Date, number, amounts and terms."""
        azar = self.azar
        pasos = self._campo("TxtFFra", self.dia()) if azar.randrange(3) == 0 else []
        pasos += self._campo("TxtNFra", f"N{azar.randrange(60)}" if azar.randrange(8) else self.texto_de("TxtNFra"))
        pasos += azar.choice([self._una_tasa] * 5 + [self._dos_tasas, self._exenta, self._con_irpf, self._con_irpf,
                                                     self._sin_base, self._de_cero])()
        return pasos + azar.choice([self._a_la_vista, self._aplazado])() + self._retoques()

    def _total(self):
        return f"{self.azar.choice([self.azar.randrange(1, 40) * 100, self.azar.randrange(100, 90000)]) / 100:.2f}"

    def _una_tasa(self):
        marcas = self.azar.choice([[], [], ["Chk16", "Chk7"], ["Chk16", "Chk4"]])
        return [("apretar", marca) for marca in marcas] + self._campo("TxtIFra", self._total())

    def _dos_tasas(self):
        otra = self.azar.choice(["7", "4"])
        pasos = self._campo("TxtIFra", self._total()) + [("apretar", "Chk" + otra)]
        pasos += self._campo("TxtB" + otra, str(self.azar.randrange(1, 30)))
        return pasos + [self.con_respuestas("enfocar", "TxtIFra"), ("tecla_panel", "Intro")]

    def _exenta(self):
        marcas = self.azar.choice([["Chk16", "Chk0"], ["Chk0"]])
        pasos = [("apretar", marca) for marca in marcas] + self._campo("TxtIFra", self._total())
        if marcas == ["Chk0"]:
            pasos += self._campo("TxtB0", "5") + [("enfocar", "TxtIFra"), ("tecla_panel", "Intro")]
        return pasos

    def _con_irpf(self):
        base = self.azar.randrange(100, 90000) / 100
        total = llano(mascara(base)) + llano(mascara(base * 0.16)) - llano(mascara(base * 0.15))
        pasos = self._campo("TxtIFra", sin_puntos(mascara(total))) + [("apretar", "Chk15")]
        if self.azar.randrange(3) == 0:
            pasos += self._campo("TxtTipoIRPF", self.texto_de("TxtTipoIRPF"), intro=False)
        if self.azar.randrange(4) == 0:
            pasos += self._campo("TxtBIRPF", sin_puntos(mascara(base * 2)))
        for campo in ("TxtBIRPF", "TxtB16"):
            pasos += self._campo(campo, sin_puntos(mascara(base)))
        return pasos

    def _sin_base(self):
        """A VAT without its base, or a base without its VAT."""
        base, iva = self.azar.choice([("", "16"), ("100", "")])
        return (self._campo("TxtIFra", "116") + self._campo("TxtB16", base)
                + self._campo("TxtI16", iva, intro=False))

    def _de_cero(self):
        """Nothing to pay, in as many receipts as are told."""
        campo = self.azar.choice(["TxtNRecibos", "TxtDias", "TxtCadencia"])
        return self._campo("TxtIFra", "0") + [("apretar", "OptAplazado")] + self._campo(campo, "3") + self._final()

    def _a_la_vista(self):
        azar = self.azar
        if azar.randrange(3):
            return []
        return [self.con_respuestas("apretar", "OptVista")] * azar.randrange(2) + self._campo("TxtFVista", self.dia())

    def _aplazado(self):
        azar = self.azar
        cuantos = "345" if "muchos" in self.con and azar.randrange(40) == 0 else azar.choice("1223345679")
        pasos = [self.con_respuestas("apretar", "OptAplazado")]
        pasos += self._campo("TxtNRecibos", cuantos)
        pasos += self._campo("TxtDias", azar.choice(["5", "15", "30", "0", "60"]))
        return pasos + self._campo("TxtCadencia", azar.choice(["30", "30", "7", "1", "15", "0"]))

    def _retoques(self):
        if self.azar.randrange(3):
            return []
        return [self.en_vtos() for _ in range(self.azar.randint(1, 3))]

    def _prevision(self):
        azar = self.azar
        pasos = [self.con_respuestas("apretar", "OptGenerar")]
        if azar.randrange(3) == 0:
            pasos += self._campo("TxtIPrev", self.dinero())
        if azar.randrange(6):
            pasos += self._campo("TxtCada", azar.choice(["1", "2", "7", "15", "30"]), intro=False)
        if azar.randrange(4):
            pasos.append(self.con_respuestas("elegir", azar.choice([0, 1, 1, 2])))
        return pasos + (self._campo("TxtDesde", self.dia()) if azar.randrange(3) == 0 else [])

    def _final(self):
        boton = "BtnAceptar" if self.azar.randrange(8) else "BtnCancelar"
        return [self.con_respuestas("apretar", boton)]

    # From the list.

    def _filas(self, condicion):
        celdas = self.jornada.pantalla.rejilla.celdas
        return [n for n in range(1, len(celdas)) if celdas[n][0] != "" and condicion(celdas[n])]

    def modificar(self):
        azar, filas = self.azar, self._filas(lambda celdas: celdas[2] != "")
        pasos = [("celda", azar.choice(filas), azar.choice([0, 1, 3]))] if filas and azar.randrange(8) else []
        pasos.append(self.con_respuestas("apretar", "BotonModificar"))
        for _ in range(azar.choice([0, 1, 1, 2])):
            pasos += azar.choice([self._a_la_vista, self._aplazado, self._retoques, self._prevision, self._una_tasa,
                                  self._terminos, self._bases])()
        return pasos + self._final()

    def _terminos(self):
        campo = self.azar.choice(["TxtNRecibos", "TxtDias", "TxtCadencia"])
        return self._campo(campo, self.texto_de(campo))

    def _bases(self):
        campo = self.azar.choice(["TxtB16", "TxtI16", "TxtB7", "TxtB0", "TxtBIRPF"])
        return self._campo(campo, self.dinero())

    def prevista(self):
        """A forecast row becomes an invoice, or is only changed."""
        azar, filas = self.azar, self._filas(lambda celdas: celdas[2] == "")
        if not filas:
            return self.nueva()
        fila = azar.choice(filas)
        if azar.randrange(2):
            pasos = [("doble", fila, azar.choice([4, 5]))]
        else:
            pasos = [("celda", fila, azar.choice([0, 1, 3])), self.con_respuestas("apretar", "BotonModificar")]
        if azar.randrange(5) == 0:
            pasos += self._campo("TxtConcepto", self.codigo() or "x")
        suerte = azar.randrange(6)
        if suerte == 0:
            return pasos + self._campo("TxtDesde", "", intro=False) + self._final()
        if suerte == 1:
            return pasos + self._prevision() + self._final()
        fecha = self._primera_de(fila) if azar.randrange(3) else ""
        pasos += self._campo("TxtFFra", fecha or self.dia()) + self._campo("TxtNFra", f"P{azar.randrange(40)}")
        pasos += self._campo("TxtIFra", self._total())
        pasos += self._aplazado() if azar.randrange(4) == 0 else []
        if azar.randrange(4) == 0:
            pasos += self._campo("TxtDesde", self.dia())
        return pasos + self._final()

    def _primera_de(self, fila):
        """The first date of the forecast that a row belongs to."""
        prevision = self.jornada.pantalla.prevision_de(self.jornada.pantalla.rejilla.celdas[fila][6])
        return prevision and a_vista(prevision["Fecha1Vto"])
