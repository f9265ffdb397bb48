"""The main screen with its entry panel."""

from alta_aceptar import Aceptacion
from alta_campos import BOTONES, CAJAS, CASILLAS, MIRADOS, OPCIONES, PLAZOS, ROTULOS
from alta_concepto import Concepto
from alta_controles import INACTIVO, Control, Foco
from alta_grabar import Escritura
from alta_importes import Importes
from alta_panel import NUEVA, Panel
from alta_plazos import Plazos
from alta_prevision import PrevisionDePanel
from alta_recibos import RejillaVtos, Recibos
from alta_teclas import Teclas
from caja_panel import Caja
from pantalla import Pantalla

TIPOS_DE_CHK = {"Chk16": 16, "Chk7": 7, "Chk4": 4, "Chk0": 0, "Chk15": 15}


class PantallaConPanel(Foco, Teclas, Panel, Concepto, Importes, Plazos, Recibos, PrevisionDePanel, Aceptacion,
                       Escritura, Caja, Pantalla):
    """`puesto` also answers elegir_concepto(): a code, or None when the chooser was cancelled; and
    avisar takes flags and title."""

    def __init__(self, puesto, almacen, local):
        self.panel_visible = self.fila_elegida = self.saltar = False
        self.cargando_factura = self.moviendo_vto = False
        self.saliendo = []
        self.vtos, self.vtos2, self.cargados = RejillaVtos(), [], None
        self.hoja = {}
        self._hacer_hoja()
        super().__init__(puesto, almacen, local)

    def _hacer_hoja(self):
        clases = (("caja", CAJAS), ("casilla", CASILLAS), ("opcion", OPCIONES), ("boton", BOTONES), ("rotulo", ROTULOS))
        for clase, nombres in clases:
            for nombre in nombres:
                dato = nombres[nombre]
                self.hoja[nombre] = Control(self, nombre, clase, rotulo="" if clase == "caja" else dato,
                                            largo=dato if clase == "caja" else 0)
        for nombre, clase in (("CboPlazo", "lista"), ("MSFVencimientos", "rejilla"), ("LblTipo", "rotulo"),
                              ("Label1", "rotulo")):
            self.hoja[nombre] = Control(self, nombre, clase)
        for nombre, control in self.hoja.items():
            setattr(self, nombre, control)
        self.Label1.rotulo = NUEVA
        tasas = {16: "B I", 7: "B I", 4: "B I", 0: "B", 15: "BIRPF IRPF TipoIRPF"}
        for tasa, prefijos in tasas.items():
            for prefijo in prefijos.split():
                campo = self.hoja[f"Txt{prefijo}" if tasa == 15 else f"Txt{prefijo}{tasa}"]
                campo._activo = tasa == 16
                if tasa != 16:
                    campo.color = INACTIVO
        self.LblTipo._activo = False
        self.Chk16._valor = self.OptVista._valor = True
        self.TxtMsf2._visible = False
        for nombre in ("TxtNRecibos", "TxtDias", "TxtCadencia"):
            self.hoja[nombre]._activo = False
        self.al_dejar_cada = {
            "TxtConcepto": self.dejar_concepto, "TxtFFra": self.dejar_fecha_de_factura, "TxtIFra": self.dejar_total,
            "TxtB0": self.dejar_exento, "TxtBIRPF": self.dejar_irpf, "TxtFVista": self.dejar_vista,
            "CboPlazo": self.dejar_plazo, "TxtDesde": self.comprobar_desde}
        for tasa in (16, 7, 4):
            self.al_dejar_cada[f"TxtB{tasa}"] = lambda tasa=tasa: self.dejar_base(tasa)
        for nombre in ("TxtI16", "TxtI7", "TxtI4", "TxtIRPF", "TxtIPrev"):
            self.al_dejar_cada[nombre] = lambda nombre=nombre: self.enmascarar_campo(nombre)
        for nombre in ("TxtNRecibos", "TxtDias", "TxtCadencia"):
            self.al_dejar_cada[nombre] = lambda nombre=nombre: self.dejar_termino(nombre)

    def de_clase(self, clase):
        return [control for control in self.hoja.values() if control.clase == clase]

    def ha_cambiado(self, control, suceso):
        """What an assignment fires."""
        nombre = control.nombre
        if suceso == "alcance":
            self.revisar_foco()
        elif suceso == "cambio" and nombre == "TxtBusco":
            self.busco_ha_cambiado()
        elif suceso == "cambio" and nombre == "TxtTipoIRPF":
            self.tipo_ha_cambiado()
        elif suceso == "click" and nombre in TIPOS_DE_CHK:
            self.chk(TIPOS_DE_CHK[nombre], control.valor)
        elif suceso == "click" and nombre == "OptGenerar":
            self.activar_prevision(control.valor)

    # The user.

    def pulsar(self, widget):
        if not self.alcanzable(widget):
            return
        if widget in self.hoja:
            self._pulsar_en_panel(self.hoja[widget])
        elif widget in ("BotonNuevo", "BotonModificar", "BtnAutCaja"):
            if self.enfocar(widget):
                {"BotonNuevo": self.nuevo, "BotonModificar": self.modificar,
                 "BtnAutCaja": self.mostrar_automaticas}[widget]()
        elif self.panel_visible:
            self.enfocar(widget)
        else:
            super().pulsar(widget)

    def _pulsar_en_panel(self, control):
        if control.nombre == "CmdCon":
            self.saltar = True
        if control.toma_foco and not self.enfocar(control.nombre):
            return
        if control.clase == "casilla":
            control.valor = not control.valor
        elif control.clase == "opcion":
            control.valor = True
            self.soltar_opcion(control.nombre)
        elif control.clase == "boton":
            {"BtnAceptar": self.aceptar, "BtnCancelar": self.cancelar_entrada, "CmdCon": self.pulsar_concepto,
             "BotonCaja": self.mostrar_caja}[control.nombre]()

    def elegir(self, elemento):
        if self.enfocar("CboPlazo"):
            self.CboPlazo.elegido = elemento

    def doble(self, fila, columna):
        """A double click on what can't be paid, in its last two columns, is a click on "Modificar"."""
        if not self.celda(fila, columna):
            return
        if self.rejilla.pagable(self.rejilla.fila):
            self.abrir_edicion()
        elif self.rejilla.columna in (4, 5):
            self.modificar()

    def cargar_grip(self):
        """An error leaves the grid's own events off until the next time."""
        self.grid_ocupado = True
        super().cargar_grip()
        self.grid_ocupado = False

    def _salir_de_celda(self):
        if not self.grid_ocupado:
            super()._salir_de_celda()

    def _llegar_a_celda(self):
        if not self.grid_ocupado:
            super()._llegar_a_celda()
            self.fila_elegida = True

    def grabar(self):
        if not self.panel_visible:
            super().grabar()

    # Looks.

    def ver(self, nombre):
        """What `ver` tells of a widget, of what is compared."""
        control = self.hoja.get(nombre)
        dichos = []
        for propiedad in MIRADOS[nombre]:
            dichos.append(f"{propiedad}={self._propiedad(nombre, control, propiedad)}")
        return " ".join([nombre, *dichos])

    def _propiedad(self, nombre, control, propiedad):
        if nombre == "PicNuevo":
            return int(self.panel_visible)
        if control is None:
            return int(not self.panel_visible)
        texto = control.texto if control.clase != "lista" else PLAZOS[control.elegido] if control.elegido >= 0 else ""
        valor = {"Text": texto, "Tag": control.tag, "Caption": control.rotulo, "Value": control.valor,
                 "ListIndex": control.elegido, "Enabled": control.activo, "Visible": control.visible,
                 "BackColor": control.color}[propiedad]
        if isinstance(valor, str):
            valor = valor.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
            return f'"{valor}"'
        return int(valor)
