"""Acceptance of an entry: its checks in their order, and what it writes."""

from alta_cuentas import avanzar, descuadra, es_numero, llano, redondo
from alta_mensajes import (BASES_NO_SUMAN, CONCEPTO_EN_BLANCO, CREAR_CONCEPTO, DESDE_HOY, DESDE_OTRA, FALTA_BASE,
                           FALTA_BASE_IRPF, FALTA_CADA, FALTA_CADENCIA, FALTA_DIAS, FALTA_IVA, FALTA_RECIBOS,
                           FALTA_TIPO, FALTA_VISTA, FECHA_FACTURA, FECHA_PREVISION_AL_ACEPTAR, FECHA_VISTA,
                           GRABAR_FACTURA, NO_SUMAN, POR_ANNOS, PREVISION_ANTERIOR, PREVISION_NEGATIVA, RECIBOS_NEGATIVOS,
                           VISTA_ANTERIOR)
from teclas import INTRO
from valores import a_guardada, mascara

TASAS = (16, 7, 4)


class Parada(Exception):
    """The handler ends here, with the panel open."""


class Aceptacion:
    """Part of the screen."""

    def aceptar(self):
        self.BtnAceptar.tag = ""
        try:
            self.cerrar_edicion_vencimiento()
            self._comprobar_fechas()
            self._comprobar_irpf()
            self._ponerse_al_dia()
            if self._con_numero():
                self._comprobar_recibos_e_iva()
            self._comprobar_concepto()
            if self._con_numero() and descuadra(self.sumar_bases(), llano(self.TxtIFra.texto)):
                self._parar(BASES_NO_SUMAN)
            if self.es_nueva():
                self._aceptar_nueva()
            else:
                self._aceptar_modificacion()
        except Parada:
            return
        self.saltar = True
        if self.BtnAceptar.tag == "":
            self.cargar_grip()
            self.cerrar_panel()
        self.sellar_apuntes()
        self.descargar_caja()
        self.de_otra_entrada()
        self.BtnAceptar.tag = ""

    def _con_numero(self):
        return self.TxtNFra.texto.strip(" ") != ""

    def _parar(self, *aviso, en=None):
        if aviso:
            self.puesto.avisar(*aviso)
        if en:
            self.poner_foco(en)
        raise Parada

    def _exigir(self, nombre, aviso):
        if self.hoja[nombre].texto == "":
            self._parar(aviso, en=nombre)

    def _comprobar_fechas(self):
        fecha = a_guardada(self.TxtFFra.texto)
        if self._con_numero() and fecha == "":
            self._parar(FECHA_FACTURA, en="TxtFFra")
        if self.TxtFFra.texto == "":
            return
        if self.OptVista.valor:
            if len(self.TxtFVista.texto) not in (8, 10):
                self._parar(FECHA_VISTA, en="TxtFVista")
            if a_guardada(self.TxtFVista.texto) < fecha:
                self._parar(VISTA_ANTERIOR, 0, "", en="TxtFVista")
        if self.OptGenerar.valor:
            if len(self.TxtDesde.texto) not in (8, 10):
                self._parar(FECHA_PREVISION_AL_ACEPTAR, en="TxtDesde")
            if a_guardada(self.TxtDesde.texto) < fecha:
                self._parar(PREVISION_ANTERIOR, 0, "", en="TxtDesde")
        if self.TxtIFra.texto == "":
            self.TxtIFra.texto = "0,00"

    def _comprobar_irpf(self):
        if self.Chk15.valor:
            self._exigir("TxtTipoIRPF", FALTA_TIPO)
            self._exigir("TxtBIRPF", FALTA_BASE_IRPF)

    def _ponerse_al_dia(self):
        """Catches up on a regeneration that no key has brought about yet."""
        if not self.OptAplazado.valor:
            self.tecla_de_vista(INTRO)
        elif self.celda_de_vto(1, 0) == "":
            self.regenerar_aplazado(self.TxtCadencia)

    def _comprobar_recibos_e_iva(self):
        suma, fila = 0.0, 1
        while fila < len(self.vtos.celdas) and self.vtos.celdas[fila][0] != "":
            suma += llano(self.vtos.celdas[fila][1])
            fila += 1
        total = llano(self.TxtIFra.texto)
        if mascara(suma) != mascara(total) and all(redondo(suma + m) != total for m in (0.01, -0.01)):
            self._parar(NO_SUMAN)
        if self.OptVista.valor and self.celda_de_vto(2, 0) != "" and self.vtos_han_cambiado():
            self._parar(NO_SUMAN)
        if self.celda_de_vto(1, 0) == "":
            self._generar_lo_que_falta()
        if any(not 0 <= llano(celdas[n] or "0") < 1e12 for celdas in self.vtos_que_se_graban() for n in (1, 2)):
            self._parar(RECIBOS_NEGATIVOS, en="MSFVencimientos")
        for tasa in TASAS:
            if not self.hoja[f"Chk{tasa}"].valor:
                continue
            base, iva = self.hoja[f"TxtB{tasa}"], self.hoja[f"TxtI{tasa}"]
            if iva.texto != "" and base.texto == "":
                self._parar(FALTA_BASE.format(tasa), en=base.nombre)
            if base.texto != "" and iva.texto == "":
                self._parar(FALTA_IVA.format(tasa), en=iva.nombre)

    def _generar_lo_que_falta(self):
        if self.OptVista.valor:
            self._exigir("TxtFVista", FALTA_VISTA)
            self.generar_vista()
        else:
            self._exigir("TxtNRecibos", FALTA_RECIBOS)
            self._exigir("TxtDias", FALTA_DIAS)
            self._exigir("TxtCadencia", FALTA_CADENCIA)
            self.generar_aplazado()
        self.comprobar_recibos()

    def _comprobar_concepto(self):
        self._exigir("TxtConcepto", CONCEPTO_EN_BLANCO)
        if self.TxtNConcepto.texto == "":
            self._parar(CREAR_CONCEPTO, en="TxtConcepto")

    def _aceptar_prevision(self):
        self._exigir("TxtCada", FALTA_CADA)
        if self.CboPlazo.elegido < 0 and self.puesto.preguntar(POR_ANNOS, 4) != "si":
            self._parar(en="CboPlazo")
        if self.TxtDesde.texto == "":
            if self.puesto.preguntar(DESDE_HOY, 4) != "si":
                self._parar(en="TxtDesde")
            self.TxtDesde.texto = self.hoy()
        if a_guardada(self.TxtDesde.texto) == "":
            self._parar(FECHA_PREVISION_AL_ACEPTAR, en="TxtDesde")
        if es_numero(self.TxtIPrev.texto) and not 0 <= llano(self.TxtIPrev.texto) < 1e12:
            self._parar(PREVISION_NEGATIVA, en="TxtIPrev")
        self.grabar_prevision()

    def _aceptar_nueva(self):
        if self.OptGenerar.valor:
            self._aceptar_prevision()
        if self._con_numero():
            self.grabar_factura()
        elif self.celda_de_vto(1, 1) == "":
            self._parar()
        elif self.puesto.preguntar(GRABAR_FACTURA, 4) == "si":
            self._parar(en="TxtNFra")

    def _aceptar_modificacion(self):
        if self._con_numero():
            if self.fila_actual()[2] != "" or self.TxtDesde.texto != self.TxtDesde.tag:
                self.grabar_factura()
            else:
                self._facturar_ocurrencia()
        if self.OptGenerar.valor:
            self._aceptar_prevision()
        else:
            self.borrar_prevision()

    def _facturar_ocurrencia(self):
        """An occurrence of the forecast becomes an invoice: the forecast goes on from the next one."""
        prevision = self.prevision_de(self.TxtNConcepto.texto)
        if prevision is None:
            return
        unidad = {1: "d", 2: "m"}.get(prevision["Tipo"], "yyyy")
        proxima = avanzar(self.rejilla.fecha(self.rejilla.fila), unidad, prevision["Cada"] or 0)
        if proxima != self.TxtDesde.texto:
            self.TxtDesde.texto = self.TxtDesde.tag = proxima
            if self.puesto.preguntar(DESDE_OTRA.format(self.TxtConcepto.texto, proxima), 4) != "si":
                self._parar()
        self.grabar_factura()
