"""What an accepted entry writes: invoice, bases and receipts, in the working tables."""

from alta_cuentas import anno_de, llano
from alta_mensajes import BASES_YA_EXISTEN, FALTAN_DATOS, RECIBO_YA_EXISTE, YA_EXISTE
from alta_tablas import dinero_de, entero_de, escribir
from mensajes import EXCESO_AL_GRABAR
from valores import CLAVE_REPETIDA, ErrorEjecucion, a_guardada, recortar

# Code of each rate and its two fields; the exempt one has none for its VAT.
TIPOS = (("1", "TxtB16", "TxtI16"), ("2", "TxtB7", "TxtI7"), ("3", "TxtB4", "TxtI4"), ("0", "TxtB0", None))


class Escritura:
    """Part of the screen. `BtnAceptar.tag` is the outcome."""

    def grabar_factura(self):
        if self.TxtNConcepto.texto == "":
            self.puesto.avisar(FALTAN_DATOS)
            return
        nueva = self.es_nueva()
        if nueva:
            clave = self.clave_del_panel()
            if self._existe(clave):
                self._rechazar_factura(YA_EXISTE, "TxtNFra")
                return
        else:
            codigo, factura, anno = self.clave_de_fila()
            clave = codigo, factura or recortar(self.TxtNFra.texto), anno
        halladas = self.de_clave(self.local.facturas, "Factura", clave)
        if not self._intentar(YA_EXISTE, "TxtNFra", lambda: escribir(
                self.local.facturas, halladas[0] if halladas else None, self._valores_de_factura())):
            return
        if self._intentar(BASES_YA_EXISTEN, "TxtB16", self._grabar_bases):
            self._grabar_vencimientos()

    def _existe(self, clave):
        return [*self.de_clave(self.local.facturas, "Factura", clave),
                *self.de_clave(self.copia.almacen.facturas, "Factura", clave)]

    def _rechazar_factura(self, aviso, campo):
        self.puesto.avisar(aviso, 16, "Error")
        self.BtnAceptar.tag = "F"
        self.poner_foco(campo)

    def _intentar(self, aviso, campo, escritura):
        try:
            escritura()
        except ErrorEjecucion as error:
            if error.numero != CLAVE_REPETIDA:
                raise
            self._rechazar_factura(aviso, campo)
            return False
        return True

    def _valores_de_factura(self):
        for nombre, vacio in (("TxtNRecibos", "1"), ("TxtDias", "0"), ("TxtCadencia", "0")):
            if self.hoja[nombre].texto == "":
                self.hoja[nombre].texto = vacio
        irpf = {"BIRPF": "TxtBIRPF", "IRPF": "TxtIRPF", "TipoIRPF": "TxtTipoIRPF"}
        irpf = {columna: self.hoja[campo].texto if self.Chk15.valor else "0" for columna, campo in irpf.items()}
        return self._clave_escrita("Factura") | {
            "Descripcion": self.TxtConcepto.texto, "Fecha": a_guardada(self.TxtFFra.texto),
            "Total": dinero_de(self.TxtIFra.texto), "forpago": "2" if self.OptAplazado.valor else "1",
            "NRecibos": entero_de(self.TxtNRecibos.texto), "Dias1Vto": entero_de(self.TxtDias.texto),
            "Cadencia": entero_de(self.TxtCadencia.texto), "BIRPF": dinero_de(irpf["BIRPF"]),
            "IRPF": dinero_de(irpf["IRPF"]), "TipoIRPF": entero_de(irpf["TipoIRPF"])}

    def _clave_escrita(self, columna):
        codigo, factura, anno = self.clave_del_panel()
        return {"NConcepto": codigo, columna: factura, "Año": anno}

    # Bases.

    def _grabar_bases(self):
        """A new entry looks for old rows under the year of whatever row the list stands on."""
        bases = self.local.bases
        if self.es_nueva():
            clave = *self.clave_del_panel()[:2], self.fila_actual()[7]
        else:
            clave = self.clave_de_fila()
            viejas = self.de_clave(bases, "NFactura", clave)
            bases.borrar(lambda f: f in viejas)
        halladas = self.de_clave(bases, "NFactura", clave)
        llenos = [tipo for tipo in TIPOS if self.hoja[tipo[1]].texto != ""]
        for fila in halladas:
            if llenos and fila["Tipo"] == llenos[0][0]:
                escribir(bases, fila, self._valores_de_base(*llenos[0], "Exento"))
        if any(llenos and fila["Tipo"] == llenos[0][0] for fila in halladas):
            llenos = llenos[1:]
        for tipo in llenos:
            escribir(bases, None, self._valores_de_base(*tipo, "Base" if halladas else "Exento"))

    def _valores_de_base(self, codigo, base, iva, exento_en):
        valores = self._clave_escrita("NFactura") | {"Tipo": codigo}
        if iva is None:
            return valores | {exento_en: dinero_de(self.hoja[base].texto)}
        return valores | {"Base": dinero_de(self.hoja[base].texto), "Importe": dinero_de(self.hoja[iva].texto)}

    # Receipts.

    def _grabar_vencimientos(self):
        if not self.vtos_han_cambiado():
            return
        clave = self.clave_de_entrada()
        if clave[1] == "":  # An occurrence that becomes an invoice has none to replace but its own.
            clave = self.clave_del_panel()
        tabla = self.local.vencimientos
        viejos = self.de_clave(tabla, "NFactura", clave)
        tabla.borrar(lambda f: f in viejos)
        try:
            for celdas in self.vtos_que_se_graban():
                self._grabar_recibo(tabla, celdas, clave)
        except ErrorEjecucion as error:
            if error.numero != CLAVE_REPETIDA:
                raise
            self.puesto.avisar(RECIBO_YA_EXISTE, 16, "Error")

    def vtos_han_cambiado(self):
        return self.es_nueva() or self.vtos.textos() != self.cargados

    def vtos_que_se_graban(self):
        if self.OptVista.valor:
            return self.vtos.celdas[1:2]
        return [celdas for celdas in self.vtos.celdas[1:] if celdas[0] != ""]

    def _grabar_recibo(self, tabla, celdas, clave):
        _, factura, anno = clave
        concepto = self.concepto(self.TxtNConcepto.texto)
        if llano(celdas[2] or "0") > llano(celdas[1] or "0"):
            self.puesto.avisar(EXCESO_AL_GRABAR)
        escribir(tabla, None, {
            "FechaVto": a_guardada(celdas[0]), "NConcepto": self.TxtNConcepto.texto,
            "Descripcion": concepto["Descripcion"] if concepto else "", "Importe": dinero_de(celdas[1]),
            "Pagado": dinero_de(celdas[2]), "NFactura": factura, "Año": anno, "Visible": True})
