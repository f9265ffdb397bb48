"""What the main screen has to do with its other two screens: who makes and shows them, and the cash entries
that an accepted invoice takes."""

from alta_cuentas import anno_de
from auto_pantalla import Automaticas
from caja_pantalla import PantallaDeCaja
from copia import sin_comilla
from valores import igual, recortar


class Caja:
    """Part of the screen. `caja` is the screen of cash entries while it is loaded; `modal` the screen that
    lies over this one; `importe_caja` what the till has paid of the entry; `hay_importe` tells that a
    regeneration was refused."""

    caja = modal = None
    importe_caja, hay_importe = 0.0, False

    def la_caja(self):
        """Whoever asks for it loads it."""
        if self.caja is None:
            self.caja = PantallaDeCaja(self)
        return self.caja

    def descargar_caja(self):
        if self.modal is self.caja:
            self.modal = None
        self.caja = None

    def rehacer_caja(self):
        self.descargar_caja()
        self.la_caja()

    def mostrar_caja(self):
        self.modal = self.la_caja()

    def mostrar_automaticas(self):
        self.cerrar_edicion()
        self.modal = Automaticas(self)

    def cerrar_modal(self):
        self.modal = None

    def de_otra_entrada(self):
        self.importe_caja, self.hay_importe = 0.0, False

    # Cash entries.

    def _apuntes(self, tipo):
        """Those that the entry may take, by their moment: free ones, and in a modification its own."""
        suya = None
        if not self.es_nueva():
            sin_comilla(self.TxtNFra.texto)
            suya = recortar(self.TxtNFra.texto)
        return sorted((a for a in self.local.caja.filas if str(a["Tipo"]) == tipo
                       and (not a["Factura"] or suya is not None and igual(recortar(a["Factura"]), suya))),
                      key=lambda a: a["FechaHora"])

    def apuntes_del_concepto(self):
        codigo = self.TxtNConcepto.texto
        return self._apuntes(str(int(codigo))) if codigo.isdecimal() else []

    def apuntes_de(self, fila):
        return [a for a in self._apuntes(fila.tipo) if a["FechaHora"] == fila.momento]

    def sellar_apuntes(self):
        """A marked row's entry takes the number, one that isn't gets free."""
        if self.TxtNFra.texto.strip(" ") == "" or self.TxtFFra.texto == "":
            return
        for fila in self.la_caja().filas:
            hallados = self.apuntes_de(fila) if fila.tipo != "" else []
            if hallados and fila.marcada:
                hallados[0].update(Factura=self.TxtNFra.texto, Año=anno_de(self.TxtFFra.texto))
            elif hallados:
                hallados[0].update(Factura="", Año="")
