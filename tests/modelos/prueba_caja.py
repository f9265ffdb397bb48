"""Cash entries in the model: their list, and the entries of the panel that they pay."""

from decimal import Decimal

from prueba_panel import Banco

LARGO = "Compra de material de oficina y sellos"
DOS = [("2005-03-01 10:00", 400, Decimal(30)), ("2005-03-02", 400, Decimal("20.5"))]


def prueba_lista_de_un_concepto():
    ajenos = [("2005-03-01 12:00", 401, Decimal(9)), ("2005-03-04", 400, Decimal(7), "", "F9", "2005")]
    b = Banco(caja=[*DOS, *ajenos]).nueva()
    filas = b.p.caja.filas
    assert [fila.etiqueta() for fila in filas] == ["01/03/2005 10:00:00", "02/03/2005"]
    assert [fila.tipo for fila in filas] == ["400", "400"] and not any(fila.marcada for fila in filas)
    assert 'LblTxt(0) Caption="Fecha:01/03/2005 10:00:00" Tag="01/03/2005 10:00:00" Visible=1' in b.p.caja.ver()


def prueba_observaciones():
    caja = [(f"2005-03-0{n + 1}", 400, Decimal(1), LARGO[:largo]) for n, largo in enumerate((35, 36))]
    filas = Banco(caja=[*caja, ("2005-03-09", 400, Decimal(1), None)]).nueva().p.caja.filas
    assert [fila.observaciones for fila in filas] == [LARGO[:35], LARGO[:35], ""]


def prueba_un_momento_es_una_fila():
    """Only the first amount counts, and only its entry is stamped."""
    b = Banco(caja=[("2005-03-01 10:00", 400, Decimal(30), "", None, None, "2"),
                    ("2005-03-01 10:00", 400, Decimal(20), "", None, None, "1")]).nueva()
    assert len(b.p.caja.filas) == 1
    b.campo("TxtNFra", "N1").de_caja(0)
    assert b.textos("TxtIFra") == ["30,00"]
    b.pulsar("BtnAceptar")
    sellos = [(a["Importe"], a["Factura"], a["Año"]) for a in b.local.caja.filas]
    assert sellos == [(30, "N1", "2005"), (20, None, None)]


def prueba_el_momento_cero_no_hace_fila():
    b = Banco(caja=[("1899-12-30", 400, Decimal(30)), *DOS]).nueva()
    assert [fila.tipo for fila in b.p.caja.filas] == ["", "400", "400"] and b.p.caja.filas[0].visible
    b.de_caja(0, 1)
    assert b.textos("TxtIFra") == ["30,00"]


def prueba_facturar_hace_una_exenta():
    b = Banco(caja=DOS).nueva().de_caja(0, 1)
    p = b.p
    assert p.modal is None and p.foco == "BotonCaja" and p.importe_caja == 50.5
    assert b.textos("TxtIFra", "TxtB0", "TxtB16", "TxtI16") == ["50,50", "50,50", "", ""]
    assert p.OptVista.valor and p.Chk0.valor and not p.Chk16.valor
    assert p.vtos.textos()[0] == ("15/03/2005", "50,50", "50,50", "")
    b.campo("TxtNFra", "N1").pulsar("BtnAceptar")
    assert b.avisos() == [] and p.caja is None and p.importe_caja == 0
    recibo = b.local.vencimientos.filas[0]
    assert (recibo["Importe"], recibo["Pagado"]) == (Decimal("50.50"), Decimal("50.50"))
    assert [(f["Tipo"], f["Exento"]) for f in b.local.bases.filas] == [("0", Decimal("50.50"))]
    assert [a["Factura"] for a in b.local.caja.filas] == ["N1", "N1"]


def prueba_facturar_dos_veces_suma_dos_veces():
    b = Banco(caja=DOS).nueva().de_caja(0).de_caja()
    assert b.textos("TxtIFra") == ["60,00"]
    b.campo("TxtConcepto", "400").de_caja(0)
    assert b.textos("TxtIFra") == ["30,00"]


def prueba_sin_apuntes_factura_cero():
    b = Banco().nueva()
    assert not b.p.caja.filas[0].visible
    b.de_caja(0)
    assert b.textos("TxtIFra", "TxtB0") == ["0,00", "0,00"] and not b.p.caja.filas[0].marcada


def prueba_importe_nulo():
    b = Banco(caja=[("2005-03-01", 400, None), *DOS]).nueva().de_caja(0, 1)
    assert b.textos("TxtIFra") == ["30,00"]


def prueba_codigo_que_no_es_numero():
    b = Banco(caja=DOS)
    b.almacen.conceptos.insertar({"NConcepto": "A1", "Descripcion": "Varios"})
    b.nueva().campo("TxtConcepto", "A1")
    assert b.p.BotonCaja.activo and not b.p.caja.filas[0].visible


def prueba_lo_que_paga_la_caja_se_reparte():
    b = Banco(caja=[("2005-03-01", 400, Decimal(100))]).nueva().de_caja(0)
    b.pulsar("OptAplazado").campo("TxtNRecibos", "3").campo("TxtDias", "30").campo("TxtCadencia", "30")
    assert [fila[1:3] for fila in b.p.vtos.textos()[:3]] == [("33,33", "33,33"), ("33,33", "33,33"), ("33,34", "33,33")]
    b.pulsar("BtnCancelar")
    assert b.p.importe_caja == 0 and b.p.caja is None


def prueba_modificar_trae_lo_suyo_marcado():
    b = Banco(receipts=1, caja=[*DOS, ("2005-03-05", 400, Decimal(5), "", "f1 ", "2005")]).modificar()
    assert [fila.marcada for fila in b.p.caja.filas] == [False, False, True]
    b.de_caja(0, 2, facturar=False)
    assert b.textos("TxtIFra") == ["116,00"] and b.p.caja.filas[0].marcada
    b.pulsar("BtnAceptar")
    assert b.avisos() == []
    suyos = {a["Importe"]: (a["Factura"], a["Año"]) for a in b.local.caja.filas}
    assert suyos == {30: ("F1", "2005"), Decimal("20.5"): ("", ""), 5: ("", "")}


def prueba_sin_numero_no_se_sella():
    b = Banco(caja=DOS).nueva().de_caja(0).si("no").pulsar("BtnAceptar")
    assert not b.p.panel_visible and [a["Factura"] for a in b.local.caja.filas] == [None, None]


def prueba_una_rechazada_sella_lo_mismo():
    b = Banco(receipts=1, caja=DOS).nueva().de_caja(0).campo("TxtNFra", "f1").pulsar("BtnAceptar")
    assert b.avisos() == ["Esta Factura ya exite "] and b.p.panel_visible and b.p.caja is None
    assert [a["Factura"] for a in b.local.caja.filas] == ["f1", ""]
    b.pulsar("BotonCaja")
    assert [fila.etiqueta() for fila in b.p.caja.filas] == ["02/03/2005"]


def prueba_rehusar_deja_el_importe_y_rehace_la_lista():
    b = Banco(receipts=1, pagado=Decimal(50), caja=DOS).modificar()
    b.si("no").de_caja(0)
    assert len(b.avisos()) == 1 and b.textos("TxtIFra", "TxtFVista") == ["116,00", "20/03/2005"]
    assert b.p.importe_caja == 30 and b.p.modal is None and not b.p.caja.filas[0].marcada
    assert b.p.vtos.textos()[0] == ("20/03/2005", "116,00", "50,00", "") and b.p.caja.total == 0
    b.si("si").de_caja(0)
    assert b.textos("TxtIFra") == ["30,00"] and b.p.vtos.textos()[0] == ("15/03/2005", "30,00", "30,00", "")


def prueba_rehusar_con_varios_recibos_iguales_no_rehace():
    """As many as were stored: the marks stay, for the list isn't made anew."""
    b = Banco(receipts=2, pagado=Decimal(1), caja=DOS).modificar().de_caja(0, facturar=False)
    b.si("no").campo("TxtDias", "11")
    assert len(b.avisos()) == 1 and b.p.caja.filas[0].marcada
    b.si("no").campo("TxtNRecibos", "3")
    assert len(b.avisos()) == 1 and not b.p.caja.filas[0].marcada


def prueba_un_importe_de_menos_de_un_euro_no_se_recuerda():
    """A text that begins with a zero counts as none."""
    b = Banco(receipts=1, pagado=Decimal(50), caja=DOS).modificar()
    for texto, queda in (("0,50", "0,00"), ("1,50", "1,50")):
        b.p.TxtIFra.texto = b.p.TxtIFra.tag = texto
        b.si("no").de_caja()
        assert b.textos("TxtIFra") == [queda]


def prueba_con_una_fila_elegida_la_lista_solo_se_rehace_para_otro_concepto():
    b = Banco(receipts=1, caja=[*DOS, ("2005-03-03", 401, Decimal(7))])
    b.p.celda(1, 1)
    b.nueva()
    assert b.p.caja is None and b.p.BotonCaja.activo
    b.de_caja(facturar=False)
    antes = b.p.caja
    b.campo("TxtConcepto", "400")
    assert b.p.caja is antes and [fila.tipo for fila in antes.filas] == ["400", "400"]
    b.campo("TxtConcepto", "401")
    assert [fila.tipo for fila in b.p.caja.filas] == ["401"]


def prueba_una_lista_que_cabe():
    for cuantas, maximo, alto in ((11, 0, 6400), (12, 2, 6840), (25, 15, 13860)):
        caja = [(f"2005-03-{n + 1:02}", 400, Decimal(1)) for n in range(cuantas)]
        p = Banco(caja=caja).nueva().p.caja
        assert (len(p.filas), p.maximo, p.valor, p.alto) == (cuantas, maximo, 0, alto)


def prueba_el_final_de_la_barra():
    p = Banco(caja=[(f"2005-03-{n + 1:02}", 400, Decimal(1)) for n in range(25)]).nueva().p.caja
    assert p.arriba() == 555
    p.mover(14)
    assert p.arriba() == 555 - 14 * 540
    p.mover(99)
    assert p.valor == 15 and p.arriba() == 555 - (13860 - 6400)


def prueba_teclas_de_la_caja():
    b = Banco(caja=DOS).nueva().pulsar("BotonCaja")
    caja = b.p.modal
    assert caja.foco is None
    for tecla, foco in (("Tab", "LblSeleccion(0)"), ("Abajo", "LblSeleccion(1)"), ("Abajo", "LblSeleccion(1)"),
                        ("Espacio", "LblSeleccion(1)"), ("Tab", "BtnFacturar"), ("Tab", "BtnAceptar"),
                        ("Tab", "LblSeleccion(1)")):
        caja.tecla(tecla)
        assert caja.foco == foco
    caja.tecla("Escape")
    assert b.p.modal is None and b.p.caja is caja and [fila.marcada for fila in caja.filas] == [False, True]
