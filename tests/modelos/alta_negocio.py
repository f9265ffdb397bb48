"""A random business whose invoices add up, so that entries loaded from it can be accepted."""

from datetime import timedelta
from decimal import Decimal

from alta_cuentas import llano, recibos, repartir
from negocio import NUMEROS, Inventor
from valores import dinero, mascara

CODIGO_DE_TASA = {16: "1", 7: "2", 4: "3"}


class InventorDeEntradas(Inventor):
    def _factura(self, codigo):
        azar = self.azar
        numero = azar.choice(NUMEROS)
        if self.uno_de(10) or (codigo, numero) in self.numeros:
            super()._factura(codigo)
            return
        self.numeros[codigo, numero] = numero
        fecha = self.dia - timedelta(days=azar.randrange(60))
        clave = {"NConcepto": codigo, "Año": str(fecha.year)}
        total = Decimal(azar.choice([azar.randrange(2, 200) * 100, azar.randrange(100, 300000)])) / 100
        retenido = {"BIRPF": Decimal(0), "TipoIRPF": 0, "IRPF": Decimal(0)}
        bases = []
        suerte = azar.randrange(8)
        if suerte < 4:
            tasa = azar.choice([16, 16, 7, 4])
            base, iva = repartir(float(total), tasa)
            bases.append((CODIGO_DE_TASA[tasa], dinero(base), dinero(iva), None))
        elif suerte == 4:
            base, iva = repartir(float(total) / 2, 16)
            bases += [("1", dinero(base), dinero(iva), None), ("0", None, None, total - dinero(base) - dinero(iva))]
        elif suerte == 5:
            iva, irpf = dinero(mascara(float(total) * 0.16)), dinero(mascara(float(total) * 0.15))
            bases.append(("1", total, iva, None))
            retenido = {"BIRPF": total, "TipoIRPF": 15, "IRPF": irpf}
            total = total + iva - irpf
        elif suerte == 6:
            bases.append(("0", None, None, total))
        veces, dias, cadencia = azar.choice([1, 1, 1, 2, 3, 4, 6]), azar.choice([5, 15, 30]), azar.choice([7, 15, 30])
        if veces == 1:
            dias, cadencia = azar.randrange(40), 0
        self.obra.poner("facturas", **clave, Factura=numero, Fecha=f"{fecha:%Y%m%d}", Total=total,
                        forpago="1" if veces == 1 else "2", NRecibos=veces, Dias1Vto=0 if veces == 1 else dias,
                        Cadencia=cadencia, Actualizado="x", ModificadoPor="OTRO", **retenido)
        for tipo, base, iva, exento in bases:
            self.obra.poner("bases", **clave, NFactura=numero, Tipo=tipo, Base=base, Importe=iva, Exento=exento)
        if self.uno_de(12):  # A base of another year's invoice that isn't there.
            self.obra.poner("bases", NConcepto=codigo, NFactura=numero, Año=str(fecha.year + 1), Tipo="1", Base=total)
        if self.uno_de(30):  # Receipts under another year than their invoice's.
            clave["Año"] = str(fecha.year - 1)
        for vence, importe in recibos(float(total), veces, dias, cadencia, f"{fecha:%d/%m/%Y}"):
            importe = Decimal(str(llano(importe)))
            pagado = self.pagado(importe)
            self.obra.poner("vencimientos", **clave, NFactura=numero, Importe=importe, Pagado=pagado,
                            FechaVto=vence[6:] + vence[3:5] + vence[:2],
                            Fechapago=f"{self.dia:%Y%m%d}" if pagado else None)
        if self.uno_de(3):
            self._apunte(codigo, numero, clave["Año"])
