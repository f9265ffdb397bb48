"""What a user sets out to do in the screen of automatic invoices, each as a list of steps."""

from auto_pantalla import TIPOS_DE_IVA

TABLAS = [("trabajo", tabla) for tabla in ("facturas", "bases", "vencimientos", "caja")]
DE_FECHA = ("TxtFFra", "CbxFDesde", "CbxFHasta")


class PlanesAutomaticos:
    """Part of the user."""

    def automaticas(self):
        azar = self.azar
        pasos = [("apretar", "BtnAutCaja"), ("otras",)]
        if azar.randrange(2):
            pasos += [("en_otra", "pulsar", "OptConcepto")] + self._concepto_automatico()
        elif azar.randrange(8) == 0:
            pasos += ([("en_otra", "pulsar", "OptConcepto")] + self._concepto_automatico()
                      + [self.con_respuestas("en_otra", "pulsar", "OptTodo")])
        if azar.randrange(3) == 0:
            pasos += self._periodo()
        if azar.randrange(3) == 0:
            pasos += self._en_otro("TxtFFra", self.dia())
        if azar.randrange(3):
            pasos += self._en_otro("TxtNFra", self._numero())
        if azar.randrange(3):
            iva = azar.randrange(len(TIPOS_DE_IVA))
            pasos.append(azar.choice([("elegir_otra", iva), ("elegir_otra", iva), ("tecla_otra", "Abajo")]))
        pasos += [("otras",)] if azar.randrange(2) else []
        pasos += [self.con_respuestas("en_otra", "pulsar", "BtnAceptar" if azar.randrange(8) else "BtnCancelar")]
        return self._grabada(pasos + [("otras",), ("rejilla",), *TABLAS])

    def repetida_automatica(self):
        """The number, and often the year, of an invoice that is there already; in the working copy or not."""
        azar = self.azar
        facturas = self.jornada.local.facturas.filas + self.jornada.almacen.facturas.filas
        if not facturas:
            return self.automaticas()
        factura = azar.choice(facturas)
        pasos = [("apretar", "BtnAutCaja")]
        if azar.randrange(3):
            pasos += [("en_otra", "pulsar", "OptConcepto")] + self._en_otro("TxtConcepto", factura["NConcepto"])
        pasos += self._en_otro("TxtNFra", azar.choice(["{}", "{}", " {}"]).format(factura["Factura"].strip(" ")))
        anno = azar.choice([factura["Año"], factura["Año"], self.jornada.reloj.year])
        pasos += self._en_otro("TxtFFra", f"{self.jornada.reloj:15/%m}/{anno}")
        pasos += [self.con_respuestas("en_otra", "pulsar", "BtnAceptar"), ("otras",), ("foco",)]
        return self._grabada(pasos + TABLAS)

    def hueca_automatica(self):
        """Something is missing, or is no date, when it is pressed."""
        azar = self.azar
        falta = azar.choice([
            [("en_otra", "pulsar", "OptConcepto")],
            [("en_otra", "pulsar", "OptConcepto"), ("en_otra", "pulsar", "CmdCon")],
            [("en_otra", "pulsar", "OptConcepto")] + self._en_otro("TxtConcepto", azar.choice(["", "x"])),
            self._en_otro("TxtFFra", azar.choice(["", "31/02/2005", "99/99/2005", "31/04/05", "1/1/05"])),
            self._en_otro("TxtNFra", azar.choice(["", " ", "  "])),
            [("en_otra", "pulsar", "lblFecha")] + self._en_otro(azar.choice(["CbxFDesde", "CbxFHasta"]),
                                                                azar.choice(["", "99/99/2005", "31/02/05", "1/1"]))])
        generar = self.con_respuestas("en_otra", "pulsar", "BtnAceptar")
        pasos = [("apretar", "BtnAutCaja"), *falta, generar, ("foco",), ("otras",)]
        return pasos + [self.en_automaticas] * azar.randrange(6) + [generar, ("tecla_otra", "Escape")]

    def _en_otro(self, campo, texto):
        pasos = [self.con_respuestas("teclear_otra", campo, texto)]
        return pasos + ([self.con_respuestas("tecla_otra", "Intro")] if self.azar.randrange(2) else [])

    def _concepto_automatico(self):
        azar = self.azar
        suerte = azar.randrange(10)
        if suerte == 0:
            return [self.con_respuestas("en_otra", "pulsar", "CmdCon")]
        conceptos = self.jornada.almacen.conceptos.filas
        texto = self.codigo() or "x"
        if suerte < 4 and conceptos:
            nombre = azar.choice(conceptos)["Descripcion"].split("\t")[0].split("\n")[0]
            texto = azar.choice([nombre, nombre.upper(), nombre[:3] + "%", "_" + nombre[1:], nombre + " "])
        elif suerte == 4:
            texto = azar.choice(["luz", "", "x", "d'Or" if "comillas" in self.con else "luz", "-3", "1,5", "999"])
        return self._en_otro("TxtConcepto", texto)

    def _periodo(self):
        azar = self.azar
        pasos = [("en_otra", "pulsar", "lblFecha")]
        for campo in azar.choice([[], ["CbxFDesde"], ["CbxFHasta"], ["CbxFDesde", "CbxFHasta"]]):
            pasos += self._en_otro(campo, self.dia())
        return pasos + ([("en_otra", "pulsar", "lblFecha")] if azar.randrange(6) == 0 else [])

    def en_automaticas(self):
        """Without a plan."""
        azar = self.azar
        suerte = azar.randrange(20)
        if suerte < 4:
            cual = azar.choice(["OptTodo", "OptConcepto", "lblFecha", "CmdCon"])
            return self.con_respuestas("en_otra", "pulsar", cual)
        if suerte < 9:
            campo = azar.choice(["TxtConcepto", "TxtNFra", "TxtFFra", "CbxFDesde", "CbxFHasta"])
            texto = self.dia() if campo in DE_FECHA else self.texto_de(campo)
            return self.con_respuestas("teclear_otra", campo, texto)
        if suerte < 14:
            teclas = ["Tab", "Tab", "Intro", "Intro", "Espacio", "Arriba", "Abajo", "Borrar"]
            return self.con_respuestas("tecla_otra", azar.choice(teclas))
        if suerte == 14:
            return ("anadir_otra", azar.choice(["5", "/05", "x", "0"]))
        if suerte == 15:
            return ("barra_otra",)
        if suerte == 16:
            return ("detras", azar.choice(["pulsar BotonNuevo", "pulsar BotonAceptar", "celda MSFPagos 1 5"]))
        return self.con_respuestas("en_otra", "pulsar", azar.choice(["BtnAceptar", "BtnAceptar", "BtnCancelar"]))
