"""Automatic invoices in the model."""

from datetime import datetime
from decimal import Decimal

from auto_generar import base_e_iva
from prueba_panel import Banco
from valores import TIPOS_DISTINTOS, ErrorEjecucion

TRES = [("2005-03-01 10:00", 400, Decimal(30)), ("2005-03-02", 401, Decimal(20)),
        ("2005-02-10 23:59:59", 402, Decimal(116))]


class De(Banco):
    """The screen open, with three concepts."""

    def __init__(self, caja=(), **mas):
        super().__init__(caja=caja, **mas)
        self.almacen.conceptos.insertar({"NConcepto": "402", "Descripcion": " Gas "})
        self.p.pulsar("BtnAutCaja")
        self.a = self.p.modal

    def poner(self, **textos):
        for campo, texto in textos.items():
            self.a.teclear(campo, texto)
        return self

    def concepto(self, texto):
        self.a.pulsar("OptConcepto")
        self.a.teclear("TxtConcepto", texto)
        self.a.tecla("Intro")
        return self

    def generar(self):
        self.a.pulsar("BtnAceptar")
        return self

    def facturas(self):
        return [(f["NConcepto"], f["Factura"], f["Año"], f["Total"]) for f in self.local.facturas.filas]

    def sellos(self):
        return [a["Factura"] for a in self.local.caja.filas]


def prueba_lo_que_se_propone():
    a = De().a
    assert (a.CbxFDesde.texto, a.CbxFHasta.texto, a.TxtNFra.texto) == ("01/02/2005", "28/02/2005", "02/2005")
    assert (a.TxtFFra.texto, a.CboIVA.elegido, a.foco) == ("15/03/2005", 0, None)
    assert a.OptTodo.valor and not a.TxtConcepto.activo and not a.CbxFDesde.activo and not a.div_fecha.visible


def prueba_en_enero_se_propone_diciembre():
    class EnEnero(De):
        reloj = datetime(2006, 1, 9, 8)

    a = EnEnero().a
    assert (a.CbxFDesde.texto, a.CbxFHasta.texto, a.TxtNFra.texto) == ("01/12/2005", "31/12/2005", "12/2005")


def prueba_sin_apuntes():
    b = De().generar()
    assert b.avisos() == [] and b.p.modal is None and b.facturas() == b.local.vencimientos.filas == []


def prueba_todos_los_conceptos():
    b = De(TRES).poner(TxtNFra=" A7 ").generar()
    assert b.avisos() == [] and b.p.modal is None and b.p.foco == "BtnAutCaja"
    assert b.facturas() == [("400", "A7", "2005", 30), ("401", "A7", "2005", 20), ("402", "A7", "2005", 116)]
    assert b.sellos() == [" A7 "] * 3 and {a["Año"] for a in b.local.caja.filas} == {"2005"}
    assert [(f["NConcepto"], f["Tipo"], f["Exento"], f["Base"], f["Importe"]) for f in b.local.bases.filas] == [
        ("400", "0", 30, None, None), ("401", "0", 20, None, None), ("402", "0", 116, None, None)]
    for recibo, total in zip(b.local.vencimientos.filas, (30, 20, 116)):
        assert (recibo["Importe"], recibo["Pagado"]) == (total, total)
        assert (recibo["FechaVto"], recibo["Visible"]) == ("20050315", True)
    assert b.local.facturas.filas[2]["Descripcion"] == b.local.vencimientos.filas[2]["Descripcion"] == "Gas"
    factura = b.local.facturas.filas[0]
    assert (factura["forpago"], factura["NRecibos"], factura["Dias1Vto"], factura["Cadencia"]) == ("1", 1, 0, 0)
    assert [celdas[:5] for celdas in b.p.rejilla.celdas[1:3]] == [["15/03/2005", "Agua", "A7", "20,00", "20,00"],
                                                                 ["15/03/2005", "Gas", "A7", "116,00", "116,00"]]


def prueba_un_concepto_y_sus_grupos():
    """One invoice: its total is the last group's, its base the first one's, its receipt the last one's."""
    b = De([("2005-03-02", 400, Decimal(20), "", ""), ("2005-03-01", 400, Decimal(30)),
            ("2005-03-03", 400, Decimal(5), "", "")])
    b.concepto("400").generar()
    assert b.avisos() == [] and b.facturas() == [("400", "02/2005", "2005", 25)]
    assert [f["Exento"] for f in b.local.bases.filas] == [30]
    assert [r["Importe"] for r in b.local.vencimientos.filas] == [25]
    assert set(b.sellos()) == {"02/2005"}


def prueba_todos_con_dos_grupos_de_un_concepto():
    """The second group's invoice is refused, and the run ends there: what was written stays, unstamped."""
    b = De([("2005-03-01", 400, Decimal(30)), ("2005-03-02", 400, Decimal(20), "", ""), *TRES[1:]]).generar()
    assert b.avisos() == ["Esta Factura ya exite "] and b.p.modal is None
    assert b.facturas() == [("400", "02/2005", "2005", 30)] and len(b.local.vencimientos.filas) == 1
    assert not any(b.sellos()) and b.p.rejilla.celdas[1][2] == "02/2005"


def prueba_el_periodo_tambien_al_sellar():
    b = De(TRES)
    b.a.pulsar("lblFecha")
    assert b.a.div_fecha.visible and b.a.CbxFHasta.activo
    b.generar()
    assert b.facturas() == [("402", "02/2005", "2005", 116)] and b.sellos() == [None, None, "02/2005"]


def prueba_periodo_que_se_apaga():
    a = De(TRES).a
    a.pulsar("lblFecha")
    a.teclear("CbxFHasta", "31/02/05")
    a.tecla("Intro")
    assert a.foco == "CbxFHasta" and a.CbxFHasta.texto == "28/02/2005"
    a.pulsar("lblFecha")
    assert a.foco is None and not a.CbxFHasta.activo and a.CbxFHasta.color == 0xFFFFFF
    a.tecla("Tab")
    assert a.foco == "TxtFFra"


def prueba_un_tipo_sin_concepto():
    """The first of all has no concept, a later one that of the group before it, whose invoice it repeats."""
    b = De([("2005-03-01", 5, Decimal(7)), *TRES[:1], ("2005-03-09", 777, Decimal(9))]).generar()
    assert b.facturas() == [("", "02/2005", "2005", 7), ("400", "02/2005", "2005", 30)]
    assert b.avisos() == ["Esta Factura ya exite "]
    assert [(r["NConcepto"], r["Descripcion"]) for r in b.local.vencimientos.filas] == [("5", None), ("400", "Luz")]


def prueba_bases():
    assert base_e_iva(116.0, 1.16, 0.16) == (100.0, 16.0) and base_e_iva(10.0, 1.07, 0.07) == (9.35, 0.65)
    for iva, escrita in ((1, ("1", 100, 16, None)), (0, ("0", None, None, 116)),
                         (3, ("3", Decimal("111.54"), Decimal("4.46"), None))):
        b = De(TRES[2:])
        b.a.elegir(iva)
        b.generar()
        assert [(f["Tipo"], f["Base"], f["Importe"], f["Exento"]) for f in b.local.bases.filas] == [escrita]


def prueba_lo_que_falta():
    b = De(TRES)
    for campo, texto, aviso in (("TxtNFra", " ", "Error al generar, Falta el Nº de Factura"),
                                ("TxtFFra", "", "Error al generar, Falta la Fecha de Factura")):
        b.poner(**{campo: texto}).generar()
        assert b.avisos() == [aviso] and b.a.foco == "TxtFFra"
    b.a.pulsar("OptConcepto")
    b.a.pulsar("CmdCon")
    assert b.a.foco == "TxtConcepto"
    b.a.hoja["TxtConcepto"]._texto = "x"
    b.elegible = "400"
    b.a.enfocar("TxtNFra")
    b.elegible = None
    b.a.pulsar("CmdCon")
    assert b.a.TxtNConcepto.texto == "" and b.a.foco == "TxtFFra"
    b.generar()
    assert b.avisos() == ["Error al generar, Falta el concepto"] and b.a.foco == "TxtConcepto" and b.facturas() == []


def prueba_una_fecha_que_no_lo_es():
    """Nothing is written; at an end of the period the run had already begun."""
    for campo, texto in (("TxtFFra", "31/02/2005"), ("TxtFFra", "99/99/2005"), ("CbxFDesde", "99/99/2005")):
        b = De(TRES)
        b.a.pulsar("lblFecha")
        try:
            b.poner(**{campo: texto}).generar()
            raise AssertionError
        except ErrorEjecucion as error:
            assert error.numero == TIPOS_DISTINTOS
        assert b.p.modal is b.a and b.facturas() == [] and not any(b.sellos())
        assert not b.a.pic_texto.visible and b.a.foco == campo


def prueba_un_codigo_que_no_es_numero():
    b = De(TRES)
    b.almacen.conceptos.insertar({"NConcepto": "A1", "Descripcion": "Varios"})
    b.concepto("varios").generar()
    assert b.p.modal is None and b.facturas() == [] and not any(b.sellos())


def prueba_una_que_ya_esta():
    b = De(TRES, receipts=1).concepto("400").poner(TxtNFra="f1").generar()
    assert b.avisos() == ["Esta Factura ya exite "] and b.p.modal is b.a and b.a.foco == "TxtNFra"
    assert not any(b.sellos()) and len(b.facturas()) == 1
    b = De(TRES)
    b.almacen.facturas.insertar({"NConcepto": "400", "Factura": "A7", "Año": "2005"})
    b.concepto("400").poner(TxtNFra="A7").generar()
    assert b.avisos() == ["Esta Factura ya exite "] and b.facturas() == []


def prueba_el_concepto_se_busca():
    for tecleado, hallado in (("401", "401"), (" 401 ", "401"), ("agua", "401"), ("l_z", "400"), ("%g%", "401"),
                              ("GAS", "402")):
        b = De().concepto(tecleado)
        assert b.avisos() == [] and b.a.TxtNConcepto.texto == hallado
    b = De().concepto("x")
    assert b.avisos() == ["Debe Crear el concepto para continuar"] and b.a.foco == "TxtConcepto"
    b.elegible = "402"
    b.concepto("y")
    assert (b.a.TxtConcepto.texto, b.a.TxtNConcepto.texto, b.a.TxtBusco.texto) == (" Gas ", "402", "402")
    b.elegible = None
    b.poner(TxtConcepto="")
    b.a.tecla("Intro")
    assert b.avisos() == ["El Concepto no puede estar en blanco"] and b.a.foco == "TxtConcepto"


def prueba_intro():
    a = De().a
    for campo, siguiente in (("TxtFFra", "TxtNFra"), ("TxtNFra", "CboIVA"), ("CboIVA", "CboIVA")):
        a.enfocar(campo)
        a.tecla("Intro")
        assert a.foco == siguiente


def prueba_salir_sin_generar():
    for salir in (lambda a: a.pulsar("BtnCancelar"), lambda a: a.tecla("Escape"), lambda a: a.cerrar_barra()):
        b = De(TRES)
        salir(b.a)
        assert b.p.modal is None and b.facturas() == []
