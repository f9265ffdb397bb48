"""The main screen with its print image."""

from alta_pantalla import PantallaConPanel
from busco_impresora import NULA, PANTALLA, BuscoImpresora
from fechas import DESDE, HASTA
from informe import DE_GRUPO, Informe, Vista
from listados import Listados
from papel_hoja import Hoja
from valores import ERROR_DE_IMPRESORA, ErrorEjecucion


class PantallaDePapel(PantallaConPanel):
    """`puesto` also has the names of its printers, the texts of the session, the sizes of the screen and of
    the one designed for; it keeps the lines of the last report in `informe`."""

    def imprimir(self):
        """Nothing comes of it over an entry that is being edited."""
        if not self.panel_visible and self.modal is None:
            destinos = [self.puesto.sesion["Pantalla"], *self.puesto.impresoras]
            self.modal = BuscoImpresora(destinos, self._destino_elegido)

    def _destino_elegido(self, impresora):
        """An amount that is none in the editor stops it here, whatever was chosen."""
        self.modal = None
        self.cerrar_edicion()
        if impresora == NULA:
            return
        if impresora != PANTALLA and not self.puesto.impresoras:
            raise ErrorEjecucion(ERROR_DE_IMPRESORA)
        hoja = Informe(Hoja(impresora == PANTALLA), self._lo_que_se_ve()).imprimir()
        self.puesto.informe = hoja.renglones
        self._hasta_la_ultima()
        if hoja.en_pantalla:
            self.modal = Listados(hoja.paginas, self.puesto.pantalla_fisica, self.puesto.referencia)

    def _lo_que_se_ve(self):
        rejilla = self.rejilla
        de_grupo = {n for n, color in enumerate(rejilla.colores) if color and color[0] == DE_GRUPO}
        return Vista(rejilla.celdas, de_grupo, self.texto[DESDE], self.texto[HASTA], self.total, self.rotulo,
                     self.puesto.reloj, self.puesto.sesion["Pagina"])

    def _hasta_la_ultima(self):
        """The report leaves the last row chosen. The one that was current before it gets its stripe back."""
        rejilla = self.rejilla
        ultima = len(rejilla.celdas) - 1
        if ultima < 1:
            return
        rejilla.despintar()
        rejilla.fila = ultima
        rejilla.elegir()
        self.fila_elegida = True

    def cerrar(self):
        """Takes along what lies over it."""
        super().cerrar()
        self.modal = None
