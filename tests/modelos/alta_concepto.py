"""The choice of the concept of an entry."""

from alta_mensajes import CONCEPTO_EN_BLANCO, CREAR_CONCEPTO
from copia import sin_comilla
from valores import ErrorEjecucion, igual


class Concepto:
    """Part of the screen."""

    def concepto(self, codigo):
        sin_comilla(codigo)
        return self.copia.almacen.conceptos.primera(lambda c: igual(c["NConcepto"], codigo))

    def dejar_concepto(self):
        if self.saltar:
            return
        self.TxtNConcepto.tag = self.TxtNConcepto.texto
        self.TxtNConcepto.texto = self.TxtBusco.texto
        try:
            hallado = self.concepto(self.TxtConcepto.texto)
            if hallado:
                self.TxtNConcepto.texto = self.TxtConcepto.texto
                self.TxtConcepto.texto = hallado["Descripcion"] or ""
            else:
                self._elegir_concepto()
        except ErrorEjecucion:
            self.TxtNConcepto.texto = ""
            raise
        if self.TxtConcepto.texto == "":
            self.puesto.avisar(CONCEPTO_EN_BLANCO)
            self.poner_foco("TxtConcepto")
            self.BotonCaja.activo = False
        elif self.TxtNConcepto.texto == "":
            self.puesto.avisar(CREAR_CONCEPTO)
            self.poner_foco("TxtConcepto")
        else:
            self._concepto_resuelto()

    def _concepto_resuelto(self):
        """The cash screen is made anew; where a row of the list was chosen before, only one of another concept."""
        self.BotonCaja.activo = True
        if not self.fila_elegida or self.caja and self.caja.concepto != self.TxtNConcepto.texto:
            self.rehacer_caja()

    def _elegir_concepto(self):
        self.TxtBusco.texto = ""
        elegido = self.puesto.elegir_concepto()
        if elegido is not None:
            self.TxtBusco.texto = elegido

    def busco_ha_cambiado(self):
        self.TxtNConcepto.tag = self.TxtNConcepto.texto
        self.TxtNConcepto.texto = self.TxtBusco.texto
        hallado = self.concepto(self.TxtBusco.texto)
        if hallado:
            self.TxtConcepto.texto = hallado["Descripcion"] or ""

    def pulsar_concepto(self):
        self._elegir_concepto()
        if self.TxtConcepto.texto != "":
            self.poner_foco("TxtFFra")
            self._concepto_resuelto()
        else:
            self.poner_foco("TxtConcepto")
            self.BotonCaja.activo = self.fila_elegida
        self.saltar = False
