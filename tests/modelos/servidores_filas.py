"""Awkward stored rows, in SQL that every engine takes: one whose key is taken, as its engine compares, stays out."""

# What a day may have of it: how many days of a hundred, and what it is.
RAREZAS = {
    "blancos": (60, "numbers with blanks around them, other ones in each table"),
    "mayusculas": (60, "numbers that differ by case"),
    "acentos": (60, "numbers and names that differ by accents"),
    "signos": (60, "numbers with the signs of a pattern"),
    "comillas": (12, "numbers with a quote"),
    "letras": (15, "signs that some call another's variant: ordinals, sharp s, parts of a letter, unseen ones"),
    "codigos": (15, "concepts with a zero before them, or blanks around them"),
    "fechas": (15, "due dates that aren't one, or have blanks"),
    "nulos": (60, "amounts, dates and names without a value"),
    "sueltas": (60, "bases and due dates without invoice, invoices without concept or without anything"),
    "negativos": (8, "amounts below zero"),
}
CODIGOS = ["400", "401", "402", "7"]
SIN_CONCEPTO = "409"
CODIGOS_RAROS = ["0400", " 400", "401 ", "07"]
NOMBRES = ["Luz", "Agua", "Ñandú, S.L.", "Nómina", "nomina", "luz", "ÁREA", " Gas ", "O'Donnell", "50% de _todo_"]
NUMEROS = {
    "": ["F1", "F2", "A-12", "1001", "2005/3", "F10"],
    "mayusculas": ["f1", "a-12", "Ñ7", "ñ7", "É1", "é1"],
    "acentos": ["Fé1", "Fe1", "ñ7", "n7", "FÉ1", "Ü2", "ü2", "u2"],
    "signos": ["50%", "F_", "F%", "%", "_", "F?", "F*", "[F]1", "#1"],
    "comillas": ["O'1", "''"],
    "letras": ["1º", "1o", "1ª", "1a", "ß1", "ss1", "e\u0301 1", "é 1", "F\u00ad1", "F\u200b1", "\u00a0F1", "F２", "ç1", "c1", "Æ1", "ae1"],
}
VENCEN = ["20041231", "20050101", "20050228", "20050301", "20050310", "20050315", "20050316", "20050331", "20050401",
          "20050410", "20050415", "20050416", "20050502", "20060101"]
VENCEN_RAROS = ["", "2005", "2005-03-20", " 20050320", "20050320 ", "20050399", "20050320a", "20050320A", "ñ"]
ANNOS = ["2005", "2005", "2005", "2004", "2006"]
MOMENTOS = ["2005-02-20 09:00:00", "2005-03-01 10:00:00", "2005-03-14 18:30:05", "2005-03-20 00:00:00",
            "2004-12-31 23:59:59"]
CLAVES = {"ProvConceptos": "NConcepto", "ProvFacturas": "NConcepto Factura Año",
          "ProvBasesIva": "NConcepto NFactura Año Tipo", "ProvVencimientos": "NConcepto NFactura Año FechaVto",
          "ProvPrevisionPagos": "NConcepto", "CajaPagos": "idSucursal FechaHora Tipo"}
NUMERICA = {"Tipo"}


def literal(valor):
    if valor is None:
        return "NULL"
    return str(valor) if isinstance(valor, (int, float)) else "'" + valor.replace("'", "''") + "'"


def insertar(tabla, **valores):
    """Adds the row, unless there is one with a key that is equal to the engine."""
    clave = " AND ".join(f"{columna} = {literal(valores[columna])}" for columna in CLAVES[tabla].split())
    return (f"INSERT INTO {tabla} ({','.join(valores)}) SELECT {','.join(map(literal, valores.values()))} "
            f"WHERE NOT EXISTS (SELECT 1 FROM {tabla} WHERE {clave})")


class Filas:
    """Chances, and the rows that come of them. `con` has the oddities of the day."""

    def __init__(self, azar, con):
        self.azar, self.con = azar, con
        self.numeros = [numero for rareza, suyos in NUMEROS.items() if not rareza or rareza in con for numero in suyos]

    def raro(self, rareza, n):
        return rareza in self.con and self.azar.randrange(n) == 0

    def codigo(self):
        if self.raro("codigos", 5):
            return self.azar.choice(CODIGOS_RAROS)
        return SIN_CONCEPTO if self.raro("sueltas", 12) else self.azar.choice(CODIGOS)

    def numero(self):
        return self.azar.choice(self.numeros)

    def como(self, numero):
        """The number as another table may have it: with other blanks, in other letters."""
        if self.raro("blancos", 5):
            numero = self.azar.choice([" {}", "{} ", " {} ", "  {}"]).format(numero.strip(" "))
        if self.raro("mayusculas", 6):
            numero = self.azar.choice([numero.lower(), numero.swapcase()]).replace("SS", "ß")
        return numero

    def importe(self):
        if self.raro("nulos", 10):
            return None
        importe = self.azar.choice([10, 20, 50, 116, 12.5, 200, 0.01, 1234.56, 1, 0])
        return -importe if self.raro("negativos", 12) else importe

    def vence(self):
        return self.azar.choice(VENCEN_RAROS if self.raro("fechas", 8) else VENCEN)

    def negocio(self):
        """Statements that make the stored tables."""
        azar = self.azar
        lineas = [insertar("ProvConceptos", NConcepto=codigo, Descripcion=self.nombre())
                  for codigo in CODIGOS + (CODIGOS_RAROS if "codigos" in self.con else [])]
        for _ in range(azar.randint(2, 9)):
            lineas += self.factura()
        for _ in range(azar.randrange(4)):
            lineas.append(self.prevision())
        for _ in range(azar.randrange(5)):
            lineas.append(self.apunte(azar.choice([None, "", None, " "]), azar.choice([None, ""]), self.codigo()))
        return lineas

    def nombre(self):
        return None if self.raro("nulos", 20) else self.azar.choice(NOMBRES)

    def factura(self):
        """A number with what is its own, often on both sides of a range, now and then of several years."""
        azar, codigo, numero = self.azar, self.codigo(), self.numero()
        annos = azar.sample(["2004", "2005", "2006"], 2) if azar.randrange(5) == 0 else [azar.choice(ANNOS)]
        lineas = []
        for anno in annos:
            if not self.raro("sueltas", 6):
                lineas.append(self._cabeza(codigo, self.como(numero), anno))
            for tipo in azar.sample("0123", azar.choice([0, 0, 1, 2])):
                lineas.append(insertar("ProvBasesIva", NConcepto=codigo, NFactura=self.como(numero), Año=anno,
                                       Tipo=tipo, Base=self.importe(), Importe=self.importe(), Exento=self.importe()))
            for _ in range(0 if self.raro("sueltas", 8) else azar.randint(1, 4)):
                lineas.append(self._recibo(codigo, self.como(numero), anno))
            if azar.randrange(3) == 0:
                lineas.append(self.apunte(self.como(numero), anno, codigo))
        return lineas

    def _cabeza(self, codigo, numero, anno):
        azar = self.azar
        return insertar(
            "ProvFacturas", NConcepto=codigo, Factura=numero, Año=anno, Total=self.importe(), NRecibos=azar.choice([1, 3]),
            Fecha=None if self.raro("nulos", 15) else anno + azar.choice(["0110", "0110", "0305"]),
            forpago=azar.choice(["1", "2"]), Dias1Vto=azar.choice([None, 0, 30]), BIRPF=azar.choice([None, 0, 1, 80.5]),
            TipoIRPF=azar.choice([None, 0, 1, 15]), IRPF=azar.choice([None, 0, 1, 12.07]), Cadencia=30,
            Actualizado=azar.choice([None, "x"]), ModificadoPor=azar.choice([None, "OTRO"]))

    def _recibo(self, codigo, numero, anno):
        importe = self.importe()
        pagado = self.azar.choice([None, None, 0, importe, 5])
        return insertar("ProvVencimientos", NConcepto=codigo, NFactura=numero, Año=anno, FechaVto=self.vence(),
                        Importe=importe, Pagado=pagado, Fechapago="20050301" if pagado else self.azar.choice([None, ""]))

    def prevision(self):
        azar = self.azar
        return insertar("ProvPrevisionPagos", NConcepto=self.codigo(), Fecha1Vto=azar.choice(VENCEN[:9]),
                        Cada=azar.choice([1, 2, 15]), Tipo=azar.choice([1, 2, 2, 3]), Importe=self.importe())

    def apunte(self, factura, anno, codigo):
        azar = self.azar
        return insertar("CajaPagos", idSucursal=azar.choice(["1", "2", "a", "A"]), FechaHora=azar.choice(MOMENTOS),
                        Tipo=int(codigo), Importe=azar.choice([30, 60, 0.3]), Factura=factura, Año=anno,
                        Observaciones=azar.choice([None, "", "café", " x "]))

    def ajena(self):
        """What a program from outside does to the stored tables."""
        azar = self.azar
        donde = f"NConcepto = '{azar.choice(CODIGOS)}'"
        return azar.choice([
            self.factura,
            lambda: [f"UPDATE ProvVencimientos SET Pagado = Importe WHERE {donde} AND FechaVto = '{azar.choice(VENCEN)}'"],
            lambda: [f"DELETE FROM {tabla} WHERE {donde} AND {columna} = {literal(self.numero())}"
                     for tabla, columna in (("ProvFacturas", "Factura"), ("ProvVencimientos", "NFactura"))],
            lambda: [f"UPDATE ProvFacturas SET Total = 77 WHERE {donde}"],
            lambda: [self.prevision()],
            lambda: [f"UPDATE CajaPagos SET Factura = {literal(self.numero())}, Año = '2005' "
                     f"WHERE FechaHora = '{azar.choice(MOMENTOS)}'"],
            lambda: [f"DELETE FROM ProvConceptos WHERE {donde}"]])()
