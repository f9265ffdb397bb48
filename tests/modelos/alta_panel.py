"""The entry panel: its opening, closing and filling, and the focus on its fields."""

from alta_controles import BLANCO, CON_FOCO, INACTIVO
from alta_campos import CON_TAG
from alta_cuentas import enmascarar
from copia import sin_comilla
from valores import a_vista, igual, mascara, normalizar, recortar

CALLAN_AL_CANCELAR = ("TxtFFra", "TxtIFra", "TxtFVista", "TxtNRecibos", "TxtDias", "TxtCadencia", "CboPlazo", "TxtDesde")

NUEVA, MODIFICAR = "Nueva Tesvara", "Modificar Tesvara"


class Panel:
    """Part of the screen."""

    # Opening and closing.

    def nuevo(self):
        self.BotonCaja.activo = False
        self.cerrar_edicion()
        self.preparar_nueva()
        self._abrir()

    def modificar(self):
        self.BotonCaja.activo = True
        self.cerrar_edicion()
        if self.fila_elegida:
            self.cargar_factura()
        else:
            self.preparar_nueva()
        self._abrir()

    def _abrir(self):
        antes = self.foco
        self.panel_visible = True
        self.revisar_foco()
        self.antes = antes
        if self.es_nueva():
            self.poner_foco("TxtConcepto")
        else:
            self.poner_foco("MSFVencimientos" if self.fila_actual()[2] != "" else "TxtNFra")

    def cerrar_panel(self):
        self.panel_visible = False
        self.revisar_foco()
        if self.antes:
            self.poner_foco(self.antes)

    def cancelar_entrada(self):
        self.de_otra_entrada()
        self.saltar = True
        self.BtnCancelar.tag = "No"
        self.cerrar_panel()
        self.BtnCancelar.tag = ""
        self.descargar_caja()

    def limpiar_panel(self):
        self.BtnCancelar.tag, self.saltar = "", False
        self.cerrar_editor_vto()
        for nombre in ("TxtConcepto TxtFFra TxtIFra TxtNFra TxtB16 TxtI16 TxtB7 TxtI7 TxtB4 TxtI4 TxtFVista TxtCada "
                       "TxtIPrev TxtNRecibos TxtDias TxtDias1 TxtCadencia TxtCadencia1").split():
            self.hoja[nombre].vaciar(con_tag=nombre in ("TxtIFra", "TxtFVista"))
        self.TxtIFra.color = BLANCO
        self.TxtFVista.color = BLANCO if self.TxtFVista.activo else INACTIVO
        self.CboPlazo.elegido = -1
        for nombre in ("Chk16", "Chk7", "Chk4", "Chk0"):
            self.hoja[nombre].valor = False
        self.Chk15.valor = True
        self.Chk15.valor = False
        for nombre in ("OptVista", "OptGenerar", "OptAplazado"):
            self.hoja[nombre].valor = False
        self.vaciar_vtos()
        for nombre in ("TxtConcepto", "CmdCon", "TxtNFra", "TxtFFra"):
            self.hoja[nombre].activo = True
        self.TxtIPrev.activo = False
        self.Label1.rotulo = NUEVA

    def preparar_nueva(self):
        self.limpiar_panel()
        self.TxtFFra.texto = self.hoy()
        self.opt("Vista", True, False)
        self.activar_prevision(False)
        self.Chk16.valor = True
        self.Chk15.valor = False
        self.Label1.rotulo = NUEVA

    def es_nueva(self):
        return self.Label1.rotulo == NUEVA

    def hoy(self):
        return f"{self.puesto.reloj:%d/%m/%Y}"

    # A stored entry.

    def fila_actual(self):
        return self.rejilla.celdas[self.rejilla.fila]

    def clave_de_fila(self):
        """Concept, number and year of the current row of the list."""
        celdas = self.fila_actual()
        return celdas[6], recortar(celdas[2]), celdas[7]

    @staticmethod
    def de_clave(tabla, columna, clave):
        """The rows of one invoice: the statement is refused where a part of its key has a quote."""
        sin_comilla(*clave)
        concepto, factura, anno = clave
        return [f for f in tabla.filas if igual(f["NConcepto"], concepto)
                and igual(recortar(f[columna]), factura) and igual(f["Año"], anno)]

    def cargar_factura(self):
        self._cargar_de_la_fila()
        self.la_caja()

    def _cargar_de_la_fila(self):
        self.limpiar_panel()
        self.activar_prevision(False)
        self.Label1.rotulo = MODIFICAR
        self.cargados = None
        celdas = self.fila_actual()
        if celdas[2] == "":
            if celdas[1] == "":
                self.preparar_nueva()
            else:
                self.cargar_prevision()
            return
        clave = self.clave_de_fila()
        halladas = self.de_clave(self.local.facturas, "Factura", clave)
        if halladas:
            self._llenar(halladas[0], clave)
        else:
            self.preparar_nueva()

    def _llenar(self, factura, clave):
        self.TxtNConcepto.texto = factura["NConcepto"]
        self.TxtConcepto.texto = factura["Descripcion"] or ""
        self.TxtFFra.texto = a_vista(factura["Fecha"])
        self.TxtNFra.texto = recortar(factura["Factura"])
        self.TxtIFra.texto = mascara(factura["Total"])
        self.TxtIFra.tag = self.TxtIFra.texto
        for nombre in ("TxtConcepto", "CmdCon", "TxtNFra", "TxtFFra"):
            self.hoja[nombre].activo = False
        self.cargar_vencimientos()
        self.guardar_vencimientos()
        if factura["forpago"] != "1":
            self.opt("Aplazado", True, False)
            self.TxtNRecibos.texto = entero(factura["NRecibos"])
            self.TxtDias.texto = self.TxtDias1.texto = entero(factura["Dias1Vto"])
            self.TxtCadencia.texto = self.TxtCadencia1.texto = entero(factura["Cadencia"])
        else:
            self.opt("Vista", True, False)
            recibos = self.de_clave(self.local.vencimientos, "NFactura", clave)
            fecha = min((r["FechaVto"] for r in recibos), default=None)
            self.TxtFVista.texto = a_vista(fecha) if recibos else self.celda_de_vto(1, 0)
            self.TxtFVista.tag = self.TxtFVista.texto
        if entero(factura["TipoIRPF"]) not in ("", "0"):
            self.Chk15.valor = True
            self.TxtTipoIRPF.texto = entero(factura["TipoIRPF"])
            self.TxtBIRPF.texto = mascara(factura["BIRPF"])
            self.TxtIRPF.texto = mascara(factura["IRPF"])
        self._llenar_bases(clave)
        self.cargar_prevision()

    def _llenar_bases(self, clave):
        bases = self.de_clave(self.local.bases, "NFactura", clave)
        if not bases:
            self.TxtB0.texto = enmascarar(self.TxtIFra.texto)
            self.Chk0.valor = True
        for fila in bases:
            tasa = {"1": 16, "2": 7, "3": 4}.get(fila["Tipo"])
            if tasa:
                self.hoja[f"TxtB{tasa}"].texto = mascara(fila["Base"])
                self.hoja[f"TxtI{tasa}"].texto = mascara(fila["Importe"])
                self.hoja[f"Chk{tasa}"].valor = True
            else:
                self.TxtB0.texto = mascara(fila["Exento"])
                self.cargando_factura = True
                self.Chk0.valor = True
                self.cargando_factura = False

    # Focus on the fields.

    def al_llegar(self, control):
        if control.clase in ("caja", "casilla") and control.nombre != "TxtMsf2":
            self.cerrar_edicion_vencimiento()
        if control.clase == "caja" and control.nombre != "TxtMsf2" or control.clase == "lista":
            control.color = CON_FOCO
        if control.nombre == "TxtIFra":
            control.tag = enmascarar(control.texto)
        if control.nombre in CON_TAG:
            control.tag = control.texto
        if control.nombre == "TxtConcepto":
            self.saltar = False
        control.todo = True

    def al_dejar(self, control):
        nombre = control.nombre
        propio = self.al_dejar_cada.get(nombre)
        cancelando = self.BtnCancelar.tag == "No"
        if nombre in CALLAN_AL_CANCELAR and cancelando:
            return
        if control.clase == "lista" or control.clase == "caja" and nombre != "TxtMsf2":
            control.color = BLANCO
        if propio:
            propio()

    def dejar_fecha_de_factura(self):
        """Drags the due date at sight and the forecast's date along."""
        self.TxtFFra.texto = normalizar(self.TxtFFra.texto)
        self.TxtFVista.texto = self.TxtFFra.texto
        self.tecla_de_vista(13)
        self.TxtDesde.texto = self.TxtFFra.texto


def entero(valor):
    """A whole number as a field shows it."""
    return "" if valor is None else str(valor)
