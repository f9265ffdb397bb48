"""The stored rows that two users begin with, odd ones among them, and what an outside program does to them."""

CONCEPTOS = {"400": "Luz", "401": "Agua", "402": "Gas"}
SIN_CONCEPTO = "409"
NUMEROS = ["F1", "F2", "A1", "B7"]
VENCEN = ["20050228", "20050301", "20050310", "20050315", "20050316", "20050331", "20050401", "20050410", "20050415",
          "20050416", "20050502"]
MOMENTOS = ["2005-02-20 09:00:00", "2005-03-01 10:00:00", "2005-03-14 18:30:05", "2005-03-20"]
NO_SE_ESCRIBE = ["ProvFacturas WHEN NEW.Factura LIKE '{}'", "ProvVencimientos WHEN NEW.NFactura LIKE '{}'",
                 "ProvBasesIva WHEN NEW.NFactura LIKE '{}'", "ProvPrevisionPagos WHEN NEW.NConcepto = '401'"]
NO_SE_COPIA = ["TempProvFacturas WHEN NEW.Factura LIKE '{}'", "TempProvVencimientos WHEN NEW.FechaVto = '20050310'",
               "TempProvPrevisionPagos WHEN NEW.NConcepto = '400'", "TempCajaPagos WHEN NEW.Importe > 50"]


def literal(valor):
    if valor is None:
        return "NULL"
    return str(valor) if isinstance(valor, (int, float)) else "'" + valor.replace("'", "''") + "'"


def insertar(tabla, **valores):
    return f"INSERT OR IGNORE INTO {tabla} ({','.join(valores)}) VALUES ({','.join(map(literal, valores.values()))})"


class Azares:
    """Chances, and the SQL of one random row or change each."""

    def __init__(self, azar):
        self.azar = azar
        self.raro = azar.choice([25, 25, 5])  # one row in so many is an odd one

    def uno_de(self, n):
        return self.azar.randrange(n) == 0

    def concepto(self):
        return SIN_CONCEPTO if self.uno_de(self.raro) else self.azar.choice(list(CONCEPTOS))

    def importe(self):
        return self.azar.choice([10, 20, 50, 116, 12.5, 200])

    def blancos(self, numero):
        return self.azar.choice([" {}", "{} ", " {} "]).format(numero) if self.uno_de(self.raro) else numero

    def negocio(self):
        """Statements that make the stored tables."""
        lineas = [insertar("ProvConceptos", NConcepto=codigo, Descripcion=nombre) for codigo, nombre in CONCEPTOS.items()]
        for _ in range(self.azar.randint(2, 6)):
            lineas += self.factura("")
        for _ in range(self.azar.randrange(3)):
            lineas.append(self.prevision(""))
        for _ in range(self.azar.randrange(4)):
            lineas.append(self.apunte(None, None))
        return lineas

    def factura(self, quien):
        """An invoice with receipts, often on both sides of the end of a range."""
        azar, codigo = self.azar, self.concepto()
        anno = "2004" if self.uno_de(8) else "2005"
        numero = azar.choice(NUMEROS)
        numero = numero.lower() if self.uno_de(self.raro) else numero
        quien = quien or None
        suyo = self.blancos(numero)
        irpf = azar.choice([None, 0, 15])
        lineas = [insertar("ProvFacturas", NConcepto=codigo, Factura=suyo, Año=anno, Fecha=anno + "0110",
                           Total=self.importe(), forpago="2", NRecibos=1, Dias1Vto=0, BIRPF=irpf, TipoIRPF=irpf,
                           IRPF=irpf, Cadencia=30, ModificadoPor=quien)]
        for tipo in azar.sample("0123", azar.choice([0, 0, 1, 2])):
            lineas.append(insertar("ProvBasesIva", NConcepto=codigo, NFactura=self.tal_vez(suyo), Año=anno, Tipo=tipo,
                                   Base=self.importe(), Importe=1, Exento=0, ModificadoPor=quien))
        for vence in azar.sample(VENCEN, azar.randint(1, 3)):
            importe = self.importe()
            pagado = importe if self.uno_de(3) else None
            lineas.append(insertar("ProvVencimientos", NConcepto=codigo, NFactura=self.tal_vez(suyo), Año=anno,
                                   FechaVto=vence, Importe=importe, Pagado=pagado, Fechapago=vence if pagado else "",
                                   ModificadoPor=quien))
        if self.uno_de(3):
            lineas.append(self.apunte(self.tal_vez(suyo), anno, codigo))
        return lineas

    def tal_vez(self, numero):
        """The number, now and then with other blanks than its invoice."""
        return self.blancos(numero.strip(" ")) if self.uno_de(12) else numero

    def prevision(self, quien):
        return insertar("ProvPrevisionPagos", NConcepto=self.concepto(), Fecha1Vto=self.azar.choice(VENCEN[:8]),
                        Cada=self.azar.choice([1, 2]), Tipo=2, Importe=self.importe(), ModificadoPor=quien or None)

    def apunte(self, factura, anno, codigo=None):
        return insertar("CajaPagos", idSucursal=self.azar.choice("12"), FechaHora=self.azar.choice(MOMENTOS),
                        Tipo=int(codigo or self.azar.choice(list(CONCEPTOS))), Importe=self.azar.choice([30, 60]),
                        Observaciones="caja", Factura=factura, Año=anno)

    def traba(self):
        """What makes a row one that can't be written, or one that can't be copied: (database, statement)."""
        base, donde = self.azar.choice([("datos", NO_SE_ESCRIBE), ("local", NO_SE_COPIA)])
        fila = self.azar.choice(donde).format(self.azar.choice(NUMEROS))
        return base, (f"CREATE TRIGGER IF NOT EXISTS Traba BEFORE INSERT ON {fila} "
                      "BEGIN SELECT RAISE(ABORT, 'no cabe'); END")

    def ajena(self):
        """What an outside program does to the stored tables."""
        azar, quien = self.azar, "FUERA"
        donde = f"NConcepto = '{azar.choice(list(CONCEPTOS))}'"
        suerte = azar.randrange(16)
        if suerte < 3:
            return self.factura(quien)
        if suerte < 5:
            return [f"UPDATE ProvVencimientos SET Pagado = Importe, Fechapago = '20050302', ModificadoPor = '{quien}' "
                    f"WHERE {donde} AND FechaVto = '{azar.choice(VENCEN)}'"]
        numero = azar.choice(NUMEROS)
        if suerte < 7:
            return [f"DELETE FROM {tabla} WHERE {donde} AND trim({columna}) = '{numero}'"
                    for tabla, columna in (("ProvFacturas", "Factura"), ("ProvBasesIva", "NFactura"),
                                           ("ProvVencimientos", "NFactura"))]
        if suerte == 7:
            return [f"UPDATE ProvVencimientos SET FechaVto = '{azar.choice(VENCEN)}' WHERE rowid = (SELECT rowid FROM "
                    f"ProvVencimientos v WHERE {donde} AND NOT EXISTS (SELECT 1 FROM ProvVencimientos w WHERE "
                    f"w.NConcepto = v.NConcepto AND w.NFactura = v.NFactura AND w.rowid <> v.rowid) LIMIT 1)"]
        return [[f"UPDATE ProvFacturas SET Total = 77, ModificadoPor = '{quien}' WHERE {donde}"],
                [f"DELETE FROM ProvBasesIva WHERE {donde} AND Tipo = '1'"],
                [self.prevision(quien)],
                [f"UPDATE ProvPrevisionPagos SET Importe = Importe + 1 WHERE {donde}"],
                [self.apunte(None, None)],
                [f"UPDATE CajaPagos SET Factura = '{numero}', Año = '2005' WHERE FechaHora = '{azar.choice(MOMENTOS)}'"],
                [f"DELETE FROM ProvConceptos WHERE {donde}"],
                [insertar("ProvConceptos", NConcepto=codigo, Descripcion=nombre) for codigo, nombre in CONCEPTOS.items()],
                ][suerte - 8]
