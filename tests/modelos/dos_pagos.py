"""What the payments in the cells of a list make of the working rows when it is saved."""

from dos_traza import llano

FECHA, NUMERO, IMPORTE, PAGADO, CONCEPTO, ANNO = 0, 2, 3, 4, 6, 7


class Pagos:
    """The working rows with what the list adds to them, and the receipts that it dates: those paid, and all of a list
    that has another length than when it was loaded."""

    def __init__(self, usuario, almacenado):
        self.final = {clave: dict(fila) for clave, fila in usuario.trabajo.items()}
        self.fechados, self.a_otra = set(), 0
        self.largo_de_entonces = len(usuario.rejilla) == len(usuario.foto)
        for gemelas, lineas in self.por_numero(usuario):
            if len(gemelas) == 1:
                self.pagar(gemelas[0], lineas[-1][1])
            else:
                self.pagar_una(gemelas, lineas, usuario.foto, almacenado)

    def por_numero(self, usuario):
        """The receipts of one due date whose numbers differ in blanks or in case alone, which are one for the system,
        and their lines, with the place of each."""
        claves, lineas = {}, {}
        for clave in self.final:
            if clave[0] == "ProvVencimientos":
                claves.setdefault(la_misma(*clave[1:]), []).append(clave)
        for n, celdas in enumerate(usuario.rejilla):
            dia = "".join(reversed(celdas[FECHA].split("/")))
            lineas.setdefault(la_misma(celdas[CONCEPTO], celdas[NUMERO], celdas[ANNO], dia), []).append((n, celdas))
        return [(gemelas, lineas[una]) for una, gemelas in claves.items() if una in lineas]

    def pagar(self, clave, celdas):
        if self.final[clave]["Pagado"] != importe(celdas[PAGADO]) or not self.largo_de_entonces:
            self.final[clave]["Pagado"] = importe(celdas[PAGADO])
            self.fechados.add(clave)

    def pagar_una(self, gemelas, lineas, foto, almacenado):
        """Of several, one gets whatever is paid on the lines of any: the first that the engine finds, which nothing
        tells but what is stored then. A line counts as paid when another amount stood in its place at the load."""
        pagadas = [celdas for n, celdas in lineas if not self.largo_de_entonces or celdas != foto[n]]
        if not pagadas:
            return
        pagado = importe(pagadas[-1][PAGADO])
        clave = max(gemelas, key=lambda una: (almacenado.get(una, {}).get("Pagado") == pagado,
                                              self.final[una]["Pagado"] != pagado))
        self.final[clave]["Pagado"] = pagado
        self.fechados.add(clave)
        self.a_otra += any(self.final[clave]["Importe"] != importe(celdas[IMPORTE]) for celdas in pagadas)


def importe(celda):
    return llano("Pagado", celda.replace(".", "").replace(",", "."))


def la_misma(concepto, numero, anno, vence):
    return concepto, numero.strip(" ").lower(), anno, vence
