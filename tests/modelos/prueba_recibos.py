"""Receipts, keys and cells of the model where no sense takes them."""

from decimal import Decimal

from lista import ocurrencias
from prueba_panel import Banco


def negativa():
    b = Banco().nueva().campo("TxtIFra", "-5")
    b.p.enfocar("OptGenerar")
    return b


def prueba_marca_de_un_recibo_negativo():
    b = negativa()
    b.p.celda_vto(1, 3)
    assert b.p.vtos.celdas[1][1:3] == ["-5,00", "-5,00"] and b.p.vtos.marcas[1]


def prueba_marca_quitada_de_lo_que_no_tenia_pago():
    b = Banco(receipts=2)
    b.p.foto.celdas[2][4] = "3,00"  # The list has another line there, with something paid.
    b.modificar()
    b.p.celda_vto(2, 3)
    assert b.p.vtos.celdas[2][2] == "58,00"
    b.p.celda_vto(2, 3)
    assert b.p.vtos.celdas[2][2] == "" and not b.p.vtos.marcas[2]


def prueba_importe_borrado_no_se_toma():
    b = Banco(receipts=1).modificar()
    b.p.doble_vto(1, 1)
    b.p.teclear("TxtMsf2", "")
    b.p.tecla_en_panel("Intro")
    assert b.p.vtos.celdas[1][1] == "116,00"


def prueba_tras_la_marca_nada_mas_se_escribe():
    b = Banco(receipts=1).modificar()
    b.p.celda_vto(1, 2)
    b.p.teclear("TxtMsf2", "116,004")
    b.p.celda_vto(4, 3)
    assert b.p.vtos.celdas[1][2] == "116,00" and b.p.vtos.marcas[1]


def prueba_cero_sobre_un_relleno():
    b = Banco(receipts=1)
    b.p.doble(1, 4)
    b.p.teclear_importe("0")
    b.p.celda(6, 4)
    assert b.p.rejilla.celdas[6][4] == "0,00" and b.p.rejilla.fila == 2


def prueba_miles_en_el_editor():
    b = Banco(receipts=1)
    b.p.doble(1, 4)
    for tecleado, queda in (("1.234,50", "1.234,50"), ("1,5", "1,5"), ("1.5", "1,5"), ("1,5,5", "1,55")):
        b.p.teclear_importe(tecleado)
        assert b.p.editor == queda


def prueba_tabulador():
    b = Banco().nueva()
    assert b.p.foco == "TxtFFra"
    recorrido = []
    for _ in range(6):
        b.p.tecla_en_panel("Tab")
        recorrido.append(b.p.foco)
    assert recorrido == ["TxtNFra", "TxtIFra", "Chk16", "TxtB16", "TxtI16", "Chk7"]
    b.p.tecla_en_panel("Tab")
    assert b.p.foco == "Chk4"


def prueba_escape():
    b = Banco(receipts=1).modificar()
    b.p.doble_vto(1, 1)
    b.p.tecla_en_panel("Escape")
    assert b.p.foco == "MSFVencimientos" and b.p.panel_visible and not b.p.TxtMsf2.visible
    b.p.tecla_en_panel("Escape")
    assert not b.p.panel_visible and b.p.foco == "BotonModificar"


def prueba_un_numero_de_blancos_no_es_ninguno():
    b = Banco().nueva().campo("TxtNFra", " ").campo("TxtIFra", "116").si("si").pulsar("BtnAceptar")
    assert b.p.panel_visible and b.p.foco == "TxtNFra" and not b.local.facturas.filas


def prueba_prevision_de_otros_siglos():
    def del_mes(primera):
        fila = {"Fecha1Vto": primera, "Cada": 15, "Tipo": 1, "Importe": Decimal(1)}
        return ocurrencias(fila, "20060301", "20060331")

    assert del_mes("01000101") == ["20060330"]
    assert del_mes("18991215") == []  # It would step on the moment zero.
