"""Acceptance of entries in the model's panel."""

from decimal import Decimal

from prueba_panel import Banco


def _factura(b, numero="N1", total="116"):
    return b.nueva().campo("TxtConcepto", "400").campo("TxtNFra", numero).campo("TxtIFra", total)


def prueba_aceptar_una_nueva():
    b = _factura(Banco()).pulsar("BtnAceptar")
    assert b.avisos() == [] and not b.p.panel_visible and b.p.foco == "BotonNuevo"
    factura = b.local.facturas.filas[0]
    assert (factura["Factura"], factura["Año"], factura["Total"], factura["forpago"]) == ("N1", "2005", 116, "1")
    assert (factura["NRecibos"], factura["Dias1Vto"], factura["Cadencia"], factura["TipoIRPF"]) == (1, 0, 0, 0)
    assert [f["Tipo"] for f in b.local.bases.filas] == ["1"]
    assert b.p.rejilla.celdas[1][:5] == ["15/03/2005", "Luz", "N1", "116,00", "0,00"]


def prueba_sin_total():
    b = Banco().nueva().campo("TxtConcepto", "400").campo("TxtNFra", "N1").pulsar("BtnAceptar")
    assert b.textos("TxtIFra") == ["0,00"]
    assert not b.p.panel_visible and [f["Importe"] for f in b.local.vencimientos.filas] == [0]


def prueba_un_centimo_en_los_recibos():
    for importe, avisos in (("115,99", 0), ("115,98", 1)):
        b = _factura(Banco())
        b.p.celda_vto(1, 1)
        b.p.teclear("TxtMsf2", importe)
        assert len(b.pulsar("BtnAceptar").avisos()) == avisos
        assert b.p.panel_visible == bool(avisos)


def prueba_prevision_sin_factura():
    b = Banco().nueva().campo("TxtConcepto", "400").pulsar("OptGenerar").campo("TxtCada", "1").plazo(1)
    b.pulsar("BtnAceptar")
    assert b.p.panel_visible and b.local.previsiones.filas[0]["Importe"] == 0
    assert b.local.previsiones.filas[0]["Fecha1Vto"] == "20050415"


def prueba_sin_numero_y_que_no():
    b = _factura(Banco(), numero="").si("no").pulsar("BtnAceptar")
    assert len(b.avisos()) == 1 and not b.p.panel_visible and b.local.facturas.filas == []


def prueba_numero_que_ya_esta_guardado():
    b = Banco()
    b.almacen.facturas.insertar({"NConcepto": "400", "Factura": "n1", "Año": "2005"})
    _factura(b).pulsar("BtnAceptar")
    assert b.avisos() == ["Esta Factura ya exite "] and b.p.panel_visible and b.p.foco == "TxtNFra"
    assert b.p.BtnAceptar.tag == "" and b.local.facturas.filas == []


def prueba_aceptar_sin_cambios_no_escribe_recibos():
    b = Banco(receipts=2, pagado=Decimal(1))
    antes = [dict(f) for f in b.local.vencimientos.filas]
    assert b.modificar().pulsar("BtnAceptar").avisos() == [] and not b.p.panel_visible
    assert b.local.vencimientos.filas == antes


def prueba_el_primer_recibo_toma_lo_pagado_de_la_fila_actual():
    b = Banco(receipts=2)
    b.p.celda(2, 5)
    b.modificar(2)
    assert b.p.vtos.textos()[0][2] == "58,00" and b.p.vtos.textos()[1][2] == "58,00"


def prueba_sin_prevision_marcada_se_borra():
    b = Banco(receipts=1, previsiones=[("400", "20050301", 1, 2, Decimal(9))]).modificar(1)
    assert b.p.OptGenerar.valor
    b.pulsar("OptGenerar").pulsar("BtnAceptar")
    assert b.local.previsiones.filas == [] and not b.p.panel_visible


def prueba_una_sola_prevision_por_concepto():
    b = Banco()
    for cada, previstas in (("1", 1), ("2", 1)):
        _factura(b, numero="N" + cada).pulsar("OptGenerar").campo("TxtCada", cada).plazo(1).pulsar("BtnAceptar")
        assert len(b.local.previsiones.filas) == previstas and not b.p.panel_visible
    assert b.local.previsiones.filas[0]["Cada"] == 2


def prueba_ocurrencia_que_se_factura():
    """The next date is asked about only when it isn't the one on the screen."""
    for desde, preguntas in (("05/04/2005", 1), ("05/03/2005", 0)):
        b = Banco(previsiones=[("401", "20050305", 1, 2, Decimal(116))]).modificar(1)
        b.campo("TxtFFra", "05/03/2005").campo("TxtNFra", "N9").campo("TxtIFra", "116")
        b.p.teclear("TxtDesde", desde)
        if not preguntas:
            b.p.TxtDesde.texto, b.p.TxtDesde.tag = "05/04/2005", "05/04/2005"
        else:
            b.p.TxtDesde.texto = b.p.TxtDesde.tag
            b.si("si")
        b.pulsar("BtnAceptar")
        assert len(b.avisos()) == preguntas and not b.p.panel_visible
        assert b.local.facturas.filas[0]["Factura"] == b.local.vencimientos.filas[0]["NFactura"] == "N9"
        assert b.local.previsiones.filas[0]["Fecha1Vto"] == "20050405"


def prueba_la_base_exenta_cuando_hay_otras():
    b = Banco(receipts=1)
    b.p.celda(1, 1)
    b.almacen.conceptos.insertar({"NConcepto": "402", "Descripcion": "Gas"})
    b.local.bases.insertar({"NConcepto": "400", "NFactura": "N1", "Año": "2005", "Tipo": "2"})
    _factura(b).pulsar("Chk0").campo("TxtB16", "50").campo("TxtB0", "58").pulsar("BtnAceptar")
    exenta = b.local.bases.primera(lambda f: f["NFactura"] == "N1" and f["Tipo"] == "0")
    assert (exenta["Base"], exenta["Exento"]) == (58, None) and not b.p.panel_visible
