"""The screen that makes invoices of the cash entries of a period: widgets, focus, keys, and its fields of concept."""

import re

from alta_controles import BLANCO, CON_FOCO, Control, Foco
from alta_cuentas import es_numero
from alta_mensajes import CONCEPTO_EN_BLANCO, CREAR_CONCEPTO
from alta_teclas import TECLAS, Teclas
from auto_generar import Generacion
from caja_miradas import DE_AUTOMATICAS, en_comillas
from copia import sin_comilla
from teclas import INTRO, tecla_fecha
from valores import igual, normalizar, plegar, recortar

TIPOS_DE_IVA = ["Exento", "16%", "7%", "4%"]
CAJAS = {"TxtConcepto": 60, "TxtNConcepto": 0, "TxtBusco": 0, "CbxFDesde": 10, "CbxFHasta": 10, "TxtFFra": 10,
         "TxtNFra": 20}
ROTULOS = {"LblNombre": " Concepto: ", "LblFecha2": "Fechas ", "Lbl(4)": "Desde:", "Lbl(0)": "Hasta:",
           "Lbl(1)": "Fecha Fra.:", "Lbl(2)": "Nº Factura:", "Lbl(3)": "Tipo Iva:", "lblFecha": ""}
OTROS = {"OptTodo": ("opcion", "Todo"), "OptConcepto": ("opcion", "Concepto"), "CmdCon": ("boton", "..."),
         "CboIVA": ("lista", ""), "BtnAceptar": ("boton", "Generar"), "BtnCancelar": ("boton", "Cancelar"),
         "DivFecha(1)": ("forma", ""), "PicTexto": ("forma", "")}
# The order of the Tab key, and where Enter goes.
ORDEN = "OptTodo OptConcepto TxtConcepto CmdCon lblFecha CbxFDesde CbxFHasta TxtFFra TxtNFra CboIVA BtnAceptar".split()
TRAS_INTRO = {"TxtFFra": "TxtNFra", "TxtNFra": "CboIVA", "TxtConcepto": "TxtFFra", "CbxFDesde": "CbxFHasta",
              "CbxFHasta": "CbxFHasta"}
DE_FECHA = ("TxtFFra", "CbxFDesde", "CbxFHasta")
DE_PERIODO = ("CbxFDesde", "CbxFHasta")


def casa(patron, texto):
    """A text against one with wildcards, without regard to case."""
    partes = {"%": ".*", "_": "."}
    return re.fullmatch("".join(partes.get(c) or re.escape(c) for c in plegar(patron)), plegar(texto), re.DOTALL)


class Automaticas(Teclas, Generacion, Foco):
    """One load of it; `madre` is the main screen."""

    nombre = "FrmFraAutomaticas"

    def __init__(self, madre):
        self.madre, self.puesto = madre, madre.puesto
        self.foco, self.dejando, self.desvio, self.saliendo = None, False, None, []
        self.perdido = None  # who had the focus when nobody got it
        self.hoja = {n: Control(self, n, "caja", largo=largo) for n, largo in CAJAS.items()}
        self.hoja |= {n: Control(self, n, "rotulo", rotulo=texto) for n, texto in ROTULOS.items()}
        self.hoja |= {n: Control(self, n, clase, rotulo=texto) for n, (clase, texto) in OTROS.items()}
        for nombre, control in self.hoja.items():
            setattr(self, nombre, control)
        self.div_fecha, self.pic_texto = self.hoja["DivFecha(1)"], self.PicTexto
        self.pic_texto._visible = False
        self._proponer()

    def _proponer(self):
        """The month before today."""
        hoy = self.puesto.reloj
        mes, anno = (12, hoy.year - 1) if hoy.month == 1 else (hoy.month - 1, hoy.year)
        self.OptTodo.valor = True
        self.CbxFDesde.texto = normalizar(f"01/{mes:02}/{anno}")
        self.CbxFHasta.texto = normalizar(f"31/{mes:02}/{anno}")
        self.TxtFFra.texto = f"{hoy:%d/%m/%Y}"
        self.TxtNFra.texto = f"{mes:02}/{anno}"
        self.CboIVA.elegido = 0
        self.activar_concepto(False)
        self.activar_fechas(False)

    def activar_concepto(self, estado):
        for control in (self.LblNombre, self.CmdCon, self.TxtConcepto):
            control.activo = estado

    def activar_fechas(self, estado):
        self.div_fecha.visible = estado
        for nombre in ("LblFecha2", "Lbl(4)", "Lbl(0)", "CbxFDesde", "CbxFHasta"):
            self.hoja[nombre].activo = estado

    def de_clase(self, clase):
        return [control for control in self.hoja.values() if control.clase == clase]

    def ha_cambiado(self, control, suceso):
        if suceso == "alcance":
            self.revisar_foco()
        elif suceso == "cambio" and control is self.TxtBusco:
            self._busco_ha_cambiado()
        elif suceso == "click" and control.clase == "opcion":
            self.activar_concepto(control is self.OptConcepto)

    # Focus.

    def alcanzable(self, widget):
        control = self.hoja.get(widget)
        return control is not None and control.activo and control.visible and widget not in ("TxtBusco", "TxtNConcepto")

    def revisar_foco(self):
        viejo = self.foco
        super().revisar_foco()
        if self.foco is None:
            self.perdido = viejo or self.perdido

    def al_llegar(self, control):
        if control.clase in ("caja", "lista"):
            control.color = CON_FOCO
        control.todo = True

    def al_dejar(self, control):
        if control.clase in ("caja", "lista"):
            control.color = BLANCO
        if control.nombre in DE_PERIODO:
            control.texto = normalizar(control.texto)
        elif control is self.TxtConcepto:
            self._dejar_concepto()

    # The user.

    def pulsar(self, nombre):
        control = self.hoja[nombre]
        if not self.alcanzable(nombre) or control.toma_foco and not self.enfocar(nombre):
            return
        if control.clase == "opcion":
            control.valor = True
        elif nombre == "lblFecha":
            self._pulsar_fechas()
        elif nombre in ("CmdCon", "BtnAceptar", "BtnCancelar"):
            {"CmdCon": self._pulsar_concepto, "BtnAceptar": self.generar_facturas,
             "BtnCancelar": self.descargar}[nombre]()

    def _pulsar_fechas(self):
        self.activar_fechas(not self.div_fecha.visible)
        if not self.div_fecha.visible:
            for nombre in DE_PERIODO:
                self.hoja[nombre].color = BLANCO

    def hay(self, nombre):
        return nombre in self.hoja

    def es_texto(self, nombre):
        return nombre in CAJAS

    def cerrar_barra(self):
        self.descargar()

    def descargar(self):
        self.madre.cerrar_modal()

    def elegir(self, elemento):
        if self.enfocar("CboIVA"):
            self.CboIVA.elegido = elemento

    def tecla(self, nombre):
        if nombre == "Tab":
            desde = ORDEN.index(self.foco or self.perdido) + 1 if self.foco or self.perdido else 0
            self.enfocar(next(n for n in ORDEN[desde:] + ORDEN[:desde] if self.alcanzable(n)))
        elif nombre == "Escape":
            self.pulsar("BtnCancelar")
        elif self.foco is not None:
            self._tecla_en(self.hoja[self.foco], nombre)

    def _tecla_en(self, control, nombre):
        if nombre in ("Arriba", "Abajo"):
            paso = -1 if nombre == "Arriba" else 1
            if control.clase == "opcion":
                self.pulsar("OptTodo" if control is self.OptConcepto else "OptConcepto")
            elif control.clase == "lista" and 0 <= control.elegido + paso < len(TIPOS_DE_IVA):
                control.elegido += paso
        elif control.clase == "caja":
            self._tecla_en_caja(control, TECLAS[nombre])
        elif nombre == "Espacio" and control.clase != "lista" or nombre == "Intro" and control.clase == "boton":
            self.pulsar(control.nombre)

    def al_teclear(self, control, codigo):
        nombre = control.nombre
        if nombre in DE_FECHA:
            codigo = tecla_fecha(control, codigo)
        if codigo == INTRO and nombre in TRAS_INTRO:
            if nombre in DE_PERIODO:
                control.texto = normalizar(control.texto)
            self.poner_foco(TRAS_INTRO[nombre])
        return codigo

    # The concept.

    def _elegir_concepto(self):
        self.TxtBusco.texto = ""
        elegido = self.puesto.elegir_concepto()
        if elegido is not None:
            self.TxtBusco.texto = elegido

    def _busco_ha_cambiado(self):
        self.TxtNConcepto.tag = self.TxtNConcepto.texto
        self.TxtNConcepto.texto = self.TxtBusco.texto
        hallado = self.madre.concepto(self.TxtBusco.texto)
        if hallado:
            self.TxtConcepto.texto = hallado["Descripcion"] or ""

    def _pulsar_concepto(self):
        self._elegir_concepto()
        self.poner_foco("TxtFFra" if self.TxtConcepto.texto != "" else "TxtConcepto")

    def _buscar(self):
        """The first concept of that code, or of a description like that."""
        texto, conceptos = self.TxtConcepto.texto.strip(" "), self.madre.copia.almacen.conceptos
        sin_comilla(texto)
        if es_numero(texto):
            return conceptos.primera(lambda c: igual(recortar(c["NConcepto"]), texto))
        return conceptos.primera(lambda c: c["Descripcion"] is not None and casa(texto, recortar(c["Descripcion"])))

    def _dejar_concepto(self):
        self.TxtNConcepto.tag = self.TxtNConcepto.texto
        self.TxtNConcepto.texto = self.TxtBusco.texto
        hallado = self._buscar()
        if hallado:
            self.TxtNConcepto.texto, self.TxtConcepto.texto = hallado["NConcepto"], hallado["Descripcion"] or ""
        else:
            self._elegir_concepto()
        if self.TxtConcepto.texto == "":
            self.puesto.avisar(CONCEPTO_EN_BLANCO)
            self.poner_foco("TxtConcepto")
        elif self.TxtNConcepto.texto == "":
            self.puesto.avisar(CREAR_CONCEPTO)
            self.poner_foco("TxtConcepto")

    # Looks.

    def ver(self):
        """What `ver` tells of each widget, of what is compared."""
        for nombre, control in self.hoja.items():
            propiedades = DE_AUTOMATICAS[nombre.split("(")[0]]
            yield " ".join([nombre, *(f"{p}={self._propiedad(control, p)}" for p in propiedades)])

    def _propiedad(self, control, propiedad):
        texto = TIPOS_DE_IVA[control.elegido] if control.clase == "lista" else control.texto
        valor = {"Text": texto, "Caption": control.rotulo, "Value": control.valor, "ListIndex": control.elegido,
                 "Enabled": control.activo, "Visible": control.visible, "BackColor": control.color,
                 "Tag": control.tag}[propiedad]
        return en_comillas(valor) if isinstance(valor, str) else int(valor)
