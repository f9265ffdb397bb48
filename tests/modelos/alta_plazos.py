"""Form of payment and terms of the entry, the generation of its receipts, and what protects stored ones."""

from alta_controles import BLANCO, INACTIVO
from alta_cuentas import anno_de, enmascarar, llano, recibos, redondo
from alta_mensajes import FECHA_VISTA, OTRO_NUMERO, RECIBOS_PAGADOS, VISTA_ANTERIOR
from teclas import INTRO, tecla_fecha
from valores import a_guardada, mascara, normalizar, recortar

TERMINOS = ("TxtNRecibos", "TxtDias", "TxtCadencia")


class Plazos:
    """Part of the screen. `volviendo` is on while stored terms come back: fields that go off ask nothing."""

    volviendo = False

    # Generation.

    def generar_aplazado(self):
        self.vaciar_vtos()
        textos = [self.hoja[n].texto for n in ("TxtIFra", "TxtDias", "TxtCadencia", "TxtNRecibos")]
        if "" in textos or textos[3] == "0":
            return
        total, dias, cadencia, cuantos = (llano(texto) for texto in textos)
        parte = redondo(self.importe_caja / cuantos) if self.importe_caja > 0 else 0
        serie = recibos(total, cuantos, dias, cadencia, self.TxtFFra.texto)
        for n, (fecha, importe) in enumerate(serie, 1):
            if n >= 5:
                self.vtos.anadir()
            self.vtos.celdas[n][:3] = [fecha, importe, mascara(max(parte, 0))]

    def generar_vista(self):
        self.vaciar_vtos()
        if self.TxtIFra.texto != "":
            self.vtos.celdas[1][:3] = [self.TxtFVista.texto, enmascarar(self.TxtIFra.texto),
                                       mascara(self.importe_caja)]

    def opt(self, tipo, estado, generar):
        terminos = [self.hoja[nombre] for nombre in TERMINOS]
        if estado:
            for campo in [self.TxtFVista, *terminos]:
                campo.activo = False
            for campo in [self.TxtFVista, *terminos]:
                campo.color = INACTIVO
        if tipo != "Vista":
            self._opt_aplazado(terminos, estado, generar)
        else:
            self._opt_vista(estado, generar)

    def _opt_aplazado(self, terminos, estado, generar):
        for campo in terminos:
            campo.activo = estado
        if not estado:
            return
        self.OptAplazado.valor = True
        for campo in terminos:
            campo.color = BLANCO
        self.TxtFVista.vaciar(con_tag=True)
        if generar:
            self.generar_aplazado()
            self.comprobar_recibos()

    def _opt_vista(self, estado, generar):
        self.TxtFVista.activo = estado
        if not estado:
            return
        self.OptVista.valor = True
        self.TxtFVista.texto = self.TxtFVista.tag = self.hoy()
        self.TxtFVista.color = BLANCO
        for nombre in ("TxtNRecibos", "TxtDias", *(() if generar else ("TxtDias1", "TxtCadencia1")), "TxtCadencia"):
            self.hoja[nombre].texto = ""
        if generar:
            self.generar_vista()
            self.comprobar_recibos()

    def soltar_opcion(self, nombre):
        """The mouse goes up over an option."""
        self.opt("Vista" if nombre == "OptVista" else "Aplazado", self.hoja[nombre].valor, True)

    # The stored receipts.

    def clave_del_panel(self):
        return self.TxtNConcepto.texto, recortar(self.TxtNFra.texto), anno_de(self.TxtFFra.texto)

    def clave_de_entrada(self):
        return self.clave_del_panel() if self.es_nueva() else self.clave_de_fila()

    def comprobar_recibos(self):
        guardados = self.de_clave(self.local.vencimientos, "NFactura", self.clave_de_entrada())
        cuantos = len(guardados)
        if cuantos == (llano(self.TxtNRecibos.texto) if self.TxtNRecibos.texto != "" else 1):
            pagado = any(r["Pagado"] is not None and r["Pagado"] > 0 for r in guardados)
            mismo = enmascarar(self.TxtIFra.texto) == enmascarar(self.TxtIFra.tag)
            if pagado and mismo and self._rehusa(RECIBOS_PAGADOS):
                self._volver_a(cuantos, rehacer=cuantos < 2)
            else:
                self.guardar_vencimientos()
        elif cuantos == 0:
            if self.OptVista.valor:
                self.generar_vista()
            else:
                self.generar_aplazado()
        elif self._rehusa(OTRO_NUMERO):
            self._volver_a(cuantos, rehacer=True)

    def _rehusa(self, pregunta):
        self.hay_importe = self.puesto.preguntar(pregunta, 4) != "si"
        return self.hay_importe

    def _volver_a(self, cuantos, rehacer):
        """Brings back the stored terms and receipts; a focus that went off with its field goes on from them."""
        if cuantos >= 2:
            self.TxtDias.texto = self.TxtDias1.texto
            self.TxtCadencia.texto = self.TxtCadencia1.texto
            self.TxtNRecibos.texto = str(cuantos)
        self.volviendo = True
        self.opt("Vista" if cuantos < 2 else "Aplazado", True, False)
        self.volviendo = False
        if rehacer:
            self.rehacer_caja()
        self.restaurar_vencimientos()
        if cuantos < 2:
            self.TxtFVista.texto = self.celda_de_vto(1, 0)
            self.TxtFVista.tag = self.TxtFVista.texto
        foco = self.hoja.get(self.foco)
        if self.foco is None or foco is not None and not foco.activo:
            self.poner_foco("TxtFVista" if self.TxtFVista.activo else "TxtNRecibos")

    # Events of the fields.

    def _seis_pruebas(self):
        return all(self.hoja[nombre].texto not in ("", "0") for nombre in TERMINOS)

    def regenerar_aplazado(self, campo, solo_con_tag=False):
        if not self._seis_pruebas() or campo.texto == campo.tag or solo_con_tag and campo.tag == "":
            return
        self.generar_aplazado()
        if campo.tag != "":
            self.comprobar_recibos()

    def dejar_termino(self, nombre):
        if not self.volviendo:
            self.regenerar_aplazado(self.hoja[nombre], solo_con_tag=nombre == "TxtCadencia")

    def intro_en_cadencia(self):
        if self.OptGenerar.valor:
            self.poner_foco("TxtCada")
        if self.foco == "TxtCadencia" or self.TxtCadencia.tag == "":
            self.regenerar_aplazado(self.TxtCadencia)

    def _vale_vista(self):
        aviso = None
        if len(self.TxtFVista.texto) not in (8, 10):
            aviso = (FECHA_VISTA,)
        elif a_guardada(self.TxtFVista.texto) < a_guardada(self.TxtFFra.texto):
            aviso = (VISTA_ANTERIOR, 0, "")
        if aviso:
            self.puesto.avisar(*aviso)
            self.poner_foco("TxtFVista")
            self.TxtFVista.todo = True
        return aviso is None

    def tecla_de_vista(self, codigo):
        """The KeyPress of the date at sight, which others run as if Enter had been pressed."""
        vista = self.TxtFVista
        if codigo == INTRO:
            if self.TxtFFra.texto != "" and not self._vale_vista():
                return codigo
            vista.texto = normalizar(vista.texto)
        codigo = tecla_fecha(vista, codigo)
        if codigo == INTRO:
            if self.OptGenerar.valor:
                self.poner_foco("TxtCada")
            elif vista.texto != vista.tag:
                self.generar_vista()
                self.comprobar_recibos()
            vista.tag = vista.texto
        return codigo

    def dejar_vista(self):
        vista = self.TxtFVista
        if self.volviendo or self.TxtFFra.texto != "" and not self._vale_vista():
            return
        if vista.texto != vista.tag:
            self.generar_vista()
            self.comprobar_recibos()
        vista.tag = vista.texto
