"""The forecast block of the entry panel."""

from alta_campos import PLAZOS
from alta_controles import BLANCO, INACTIVO
from alta_cuentas import avanzar, enmascarar, llano
from alta_mensajes import FECHA_PREVISION, PREVISION_ANTERIOR, PREVISION_YA_EXISTE
from copia import sin_comilla
from alta_tablas import dinero_de, entero_de, escribir
from valores import CLAVE_REPETIDA, ErrorEjecucion, a_guardada, a_vista, igual, mascara


class PrevisionDePanel:
    """Part of the screen."""

    def activar_prevision(self, estado):
        bloque = [self.TxtCada, self.CboPlazo, self.TxtDesde]
        for control in bloque:
            control.activo = estado
        self.TxtDesde.vaciar(con_tag=True)
        self.TxtCada.texto = ""
        self.CboPlazo.elegido = -1
        self.TxtIPrev.texto = ""
        self.TxtIPrev.activo = estado
        for control in [*bloque, self.TxtIPrev]:
            control.color = INACTIVO
        if not estado:
            return
        self.cargar_prevision()
        if self.TxtIPrev.texto == "":
            self.TxtIPrev.texto = enmascarar(self.TxtIFra.texto)
        for control in [*bloque, self.TxtIPrev]:
            control.color = BLANCO
        self.TxtDesde.texto = self.TxtFFra.texto or self.hoy()
        self.TxtDesde.tag = self.TxtDesde.texto

    def prevision_de(self, concepto):
        sin_comilla(concepto)
        return self.local.previsiones.primera(lambda p: igual(p["NConcepto"], concepto))

    def cargar_prevision(self):
        fila = self.prevision_de(self.fila_actual()[6])
        if not fila:
            return
        self.TxtNConcepto.texto = fila["NConcepto"]
        self.TxtConcepto.texto = fila["Descripcion"] or ""
        self.TxtIPrev.texto = mascara(fila["Importe"])
        self.TxtIPrev.activo = True
        self.OptGenerar.valor = True
        self.CboPlazo.elegido = {1: 0, 2: 1}.get(fila["Tipo"], 2)
        self.TxtCada.texto = "" if fila["Cada"] is None else str(fila["Cada"])
        self.TxtDesde.texto = a_vista(fila["Fecha1Vto"])
        self.TxtDesde.tag = self.TxtDesde.texto

    def grabar_prevision(self):
        nueva = self.es_nueva()
        fila = self.prevision_de(self.TxtNConcepto.texto if nueva else self.fila_actual()[6])
        try:
            valores = {"NConcepto": self.TxtNConcepto.texto, "Descripcion": self.TxtConcepto.texto,
                       "Fecha1Vto": a_guardada(self.TxtDesde.texto), "Tipo": {0: 1, 1: 2}.get(self.CboPlazo.elegido, 3)}
            if self.TxtIPrev.texto == "":
                self.TxtIPrev.texto = "0,00"
            valores |= {"Cada": entero_de(self.TxtCada.texto), "Importe": dinero_de(self.TxtIPrev.texto)}
            escribir(self.local.previsiones, fila, valores)
        except ErrorEjecucion as error:
            if error.numero != CLAVE_REPETIDA:
                raise
            self.puesto.avisar(PREVISION_YA_EXISTE, 16, "Error")
            self.poner_foco("TxtConcepto")

    def borrar_prevision(self):
        concepto = self.fila_actual()[6]
        for tabla in (self.local.previsiones, self.local.lapidas):
            tabla.borrar(lambda f: igual(f["NConcepto"], concepto))

    # Events of the block.

    def dejar_plazo(self):
        """Proposes the first date. Here the item of days counts as years."""
        if self.TxtFFra.texto == "":
            return
        if self.TxtCada.texto == "":
            self.poner_foco("TxtCada")
        elif self.CboPlazo.elegido >= 0:
            unidad = "m" if PLAZOS[self.CboPlazo.elegido] == "Meses" else "yyyy"
            self.TxtDesde.texto = avanzar(self.TxtFFra.texto, unidad, int(llano(self.TxtCada.texto)))

    def comprobar_desde(self):
        if self.TxtFFra.texto == "":
            return
        if len(self.TxtDesde.texto) not in (8, 10):
            self.puesto.avisar(FECHA_PREVISION)
        elif a_guardada(self.TxtDesde.texto) < a_guardada(self.TxtFFra.texto):
            self.puesto.avisar(PREVISION_ANTERIOR, 0, "")
        else:
            return
        self.poner_foco("TxtDesde")
        self.TxtDesde.todo = True
