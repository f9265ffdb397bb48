"""A day that prints: the steps in the chooser and in the preview, and what is looked at of them."""

import re

from alta_jornada import JornadaConPanel
from caja_miradas import en_comillas
from fechas import DESDE, HASTA
from papel_pantalla import PantallaDePapel
from valores import a_guardada

MIRADOS_EN_PAPEL = {
    "Img": ["Tag", "Visible"], "LblImpre": ["Caption", "Visible"], "Boton1": ["Caption", "Enabled"],
    "Boton2": ["Caption", "Enabled"], "Barra1": ["Caption"], "CbxPor": ["Text", "ListIndex"], "Label1": ["Caption"],
    "Scroll": ["Value", "Min", "Max", "Visible"], "PicTapa": ["BackColor"], "PicList": ["Visible"]}
SIEMPRE = ("reloj", "texto", "impresora", "ocultar", "cerrar", "informe", "otras", "detras", "en_busco", "tecla_busco",
           "zoom", "mover", "barra_otra", "avisos", "rejilla", "colores", "totales", "trabajo", "guardado", "fin")
DEL_BUSCO, DEL_LISTADO = ("en_busco", "tecla_busco"), ("zoom", "mover")


def que_se_mira_en_papel(nombre):
    """The properties that count of a widget of chooser or preview, None of what is none."""
    hecho = re.fullmatch(r"(?:frmBuscoImpresora|frmListados)\.(\w+?)(\(\d+\))?", nombre)
    return hecho and MIRADOS_EN_PAPEL.get(hecho[1])


def fecha_a_medias(pantalla):
    return pantalla.foco in (DESDE, HASTA) and a_guardada(pantalla.texto[pantalla.foco]) == ""


class JornadaDePapel(JornadaConPanel):
    clase_de_pantalla = PantallaDePapel
    con_caja = True  # Whatever lies over the screen is left by a step of the day.

    def _preparar(self, negocio):
        self.pantalla_fisica, self.referencia = negocio.pantalla_fisica, negocio.referencia
        self.textos = {"Pagina": negocio.pagina, "Pantalla": negocio.pantalla}
        self.impresoras, self.informe = list(negocio.impresoras), []
        self.decir("pantalla {} {}".format(*self.pantalla_fisica))
        self.decir("referencia {} {}".format(*self.referencia))
        for nombre, texto in self.textos.items():
            self.decir(f"texto {nombre} {en_comillas(texto)}")
        for nombre in self.impresoras:
            self.decir(f"impresora {en_comillas(nombre)}")

    def cargar(self):
        """The session is handed over each time."""
        self.sesion = dict(self.textos)
        super().cargar()

    def dar(self, paso):
        modal = self.pantalla.modal
        nombre = modal.nombre if modal else None
        if modal and paso[0] not in SIEMPRE or not modal and paso[0] in ("detras", "barra_otra"):
            return
        if (paso[0] in DEL_BUSCO and nombre != "frmBuscoImpresora" or paso[0] in DEL_LISTADO and nombre != "frmListados"):
            return
        super().dar(paso)

    # Steps.

    def paso_imprimir(self):
        self._hacer("pulsar ImgImpresora", self.pantalla.imprimir)

    def paso_en_busco(self, widget):
        if int("0" + re.sub(r"^.*\(|\)|^[^(]*$", "", widget)) < len(self.pantalla.modal.nombres):
            self._hacer(f"pulsar frmBuscoImpresora.{widget}", self.pantalla.modal.pulsar, widget)

    def paso_tecla_busco(self, nombre):
        """Enter is pressed on "Aceptar"."""
        if nombre == "Intro":
            self.decir("foco frmBuscoImpresora.Boton1")
            self._hacer("tecla Intro", self.pantalla.modal.pulsar, "Boton1")
        else:
            self._hacer("tecla Escape", self.pantalla.modal.cerrar)

    def paso_zoom(self, porcentaje):
        self._hacer(f"elegir frmListados.CbxPor {en_comillas(porcentaje)}", self.pantalla.modal.elegir, porcentaje)

    def paso_mover(self, valor):
        self._hacer(f"valor frmListados.Scroll {valor}", self.pantalla.modal.mover, valor)

    def paso_barra_otra(self):
        modal = self.pantalla.modal
        self._hacer(f"barra {modal.nombre}", modal.cerrar if modal.nombre == "frmBuscoImpresora" else self._cerrar_listado)

    def _cerrar_listado(self):
        self.pantalla.modal = None

    def paso_detras(self, orden):
        """On the main screen, where nothing comes of it."""
        self.decir(orden)

    def paso_texto(self, cual, texto):
        """The host changes a text: it counts from the next time that it hands its session over."""
        self.textos[cual] = texto
        self.decir(f"texto {cual} {en_comillas(texto)}")

    def paso_impresora(self, nombre):
        """One more printer, for the next chooser."""
        self.impresoras.append(nombre)
        self.decir(f"impresora {en_comillas(nombre)}")

    def paso_cerrar(self, orden, respuesta):
        if self.pantalla.modal and orden != "cerrar":
            self.decir(orden)
        else:
            super().paso_cerrar(orden, respuesta)

    def paso_fin(self):
        for _ in range(2):
            if self.pantalla.modal:
                self.paso_barra_otra()
        if fecha_a_medias(self.pantalla):
            campo = self.pantalla.foco
            self.paso_fecha(campo, "31/12/2029" if campo == HASTA else "01/01/2004", "no")
        self.paso_informe()
        super().paso_fin()

    # Looks.

    def paso_foco(self):
        if self.pantalla.modal is None and self.pantalla.foco in (DESDE, HASTA):
            self.decir("foco?", [self.pantalla.foco])

    def paso_informe(self):
        self.decir("informe")
        self.esperado += [(len(self.lineas), renglon) for renglon in self.informe]

    def paso_otras(self):
        """Which screens are loaded, and what is on them."""
        modal, caja = self.pantalla.modal, self.pantalla.caja
        cargadas = [f"{caja.nombre} 0"] if caja else []
        cargadas += [f"{modal.nombre} 1"] if modal else []
        self.decir("pantallas", ["FrmTesvaraGastos 1"] + cargadas)
        for visto in modal.ver() if modal else ():
            self.decir(f"ver {modal.nombre}.{visto.split(' ')[0]}", [f"{modal.nombre}.{visto}"])
