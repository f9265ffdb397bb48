"""The report in the model: what it draws, where, and what it leaves behind."""

from datetime import datetime

from informe import Informe, Vista, fecha_larga
from lista import ELEGIDA, FRANJA_A, FRANJA_B, PREVISTO
from papel_hoja import Hoja, renglon
from papel_letra import alto, ancho
from papel_pantalla import PantallaDePapel
from prueba_panel import Banco

CABECERA = ["Fecha Vto", "Concepto", "NºFactura", "Importe", "Pagado", "*", "", ""]
FILA = ["20/03/2005", "Luz", "F1", "100,00", "30,00", "", "400", "2005"]
PREVISTA = ["21/03/2005", "Agua", "", "5,00", "", "", "401", ""]
DETALLE = 1324 / 1000 * 10 * 2.54 / 72  # how far a row goes down
PRIMERA = 5.798  # where the first one stands
POR_HOJA = 49


class BancoDePapel(Banco):
    clase_de_pantalla = PantallaDePapel

    def __init__(self, impresoras=(), pantalla="Pantalla", **lo_demas):
        self.impresoras, self.sesion = impresoras, {"Pagina": "Página", "Pantalla": pantalla}
        self.pantalla_fisica = self.referencia = 15360, 11520
        self.informe = None
        super().__init__(**lo_demas)

    def imprimir(self, destino=0, boton="Boton1"):
        self.p.imprimir()
        self.p.modal.pulsar(f"Img({destino})")
        self.p.modal.pulsar(boton)
        return self


def dibujar(filas, en_pantalla=False, de_grupo=(), **otros):
    textos = {"desde": "01/03/2005", "hasta": "31/03/2005", "total": "100,00", "pendiente": "Total Pendiente: 70,00",
              "hoy": datetime(2005, 3, 15, 10), "pagina": "Página"} | otros
    return Informe(Hoja(en_pantalla), Vista([CABECERA, *filas], set(de_grupo), **textos)).imprimir()


def textos(hoja, pagina=1):
    """Texts of a page with their place, in the order in which they were drawn."""
    suyos = [r.split(" ", 4) for r in hoja.renglones if r.startswith(f"p{pagina} texto")]
    return {resto[1:resto.index('"', 1)]: (float(x), float(y)) for _, _, x, y, resto in suyos}


def prueba_medidas():
    assert round(ancho("F1", 10, False), 4) == round((640 + 620) / 100 * 2.54 / 72, 4)
    assert ancho("Σ", 9, True) == ancho("0", 9, True) and ancho("a\x01b", 9, False) == ancho("a b", 9, False)
    assert round(alto(14, True), 3) == 0.691 and round(alto(10, False), 3) == 0.467


def prueba_hoja_entera():
    assert dibujar([FILA], en_pantalla=True).renglones == [
        "p1 caja 0.00 0.00 20.97 29.67 0 0",
        'p1 texto 6.66 1.00 "TESVARA DE GASTOS" Bookman Old Style 14 1 0',
        "p1 linea 1.00 1.69 20.00 1.69 0",
        'p1 texto 13.95 1.79 "martes, 15 de marzo de 2005" Bookman Old Style 12 0 16711680',
        'p1 texto 1.00 2.91 "Previsión Desde:  01/03/2005   Hasta:   31/03/2005" Bookman Old Style 12 0 0',
        'p1 texto 1.00 4.03 "Total Pagos: .............................. 100,00  " Bookman Old Style 12 0 16711680',
        'p1 texto 15.34 4.03 "Total Pendiente: 70,00" Bookman Old Style 12 0 128',
        "p1 caja 1.00 5.05 20.00 5.70 -2147483633 1",
        'p1 texto 1.50 5.15 "Fecha Vto" Bookman Old Style 9 1 0',
        'p1 texto 7.00 5.15 "Concepto" Bookman Old Style 9 1 0',
        'p1 texto 11.50 5.15 "NºFactura" Bookman Old Style 9 1 0',
        'p1 texto 15.00 5.15 "Importe" Bookman Old Style 9 1 0',
        'p1 texto 18.84 5.15 "Pagado" Bookman Old Style 9 1 0',
        'p1 texto 1.20 5.80 "20/03/2005" Bookman Old Style 10 0 0',
        'p1 texto 3.80 5.80 "Luz" Bookman Old Style 10 0 0',
        'p1 texto 12.66 5.80 "F1" Bookman Old Style 10 0 0',
        'p1 texto 15.19 5.80 "100,00" Bookman Old Style 10 0 0',
        'p1 texto 19.01 5.80 "30,00" Bookman Old Style 10 0 0',
        'p1 texto 7.85 29.14 "Norvalia Software - Qzlm Página 1" Bookman Old Style 9 0 0']


def prueba_el_papel_no_lleva_marco():
    en_papel, en_pantalla = dibujar([FILA]), dibujar([FILA], en_pantalla=True)
    assert en_papel.renglones == en_pantalla.renglones[1:]


def prueba_solo_la_cabecera():
    hoja = dibujar([])
    assert hoja.paginas == 1 and len(hoja.renglones) == 13
    assert list(textos(hoja))[-2:] == ["Pagado", "Norvalia Software - Qzlm Página 1"]


def prueba_salto_de_pagina():
    assert dibujar([FILA] * POR_HOJA).paginas == 1
    hoja = dibujar([FILA] * POR_HOJA + [PREVISTA])
    assert hoja.paginas == 2
    una, otra = textos(hoja, 1), textos(hoja, 2)
    assert "Agua" not in una and otra["Agua"] == (3.8, 5.8)
    cabeceras = [[r[3:] for r in hoja.renglones if r.startswith(pagina)][:12] for pagina in ("p1", "p2")]
    assert cabeceras[0] == cabeceras[1] and "100,00" in cabeceras[1][4] and "01/03/2005" in cabeceras[1][3]


def prueba_la_pagina_cuenta_pies():
    hoja = dibujar([FILA] * (2 * POR_HOJA + 1), pagina="Hoja")
    for n in (1, 2, 3):
        pie = f"Norvalia Software - Qzlm Hoja {n}"
        assert list(textos(hoja, n))[-1] == pie and textos(hoja, n)[pie][1] == 29.14


def prueba_filas_de_grupo():
    """Smaller, in the middle, and less high than a detail row."""
    grupo = ["Grupo", *[""] * 7]
    hoja = dibujar([grupo, FILA], de_grupo=[1])
    suyo = next(r for r in hoja.renglones if '"Grupo"' in r)
    x = (21 - (ancho("Grupo", 8, True) + 2)) / 2
    assert suyo == f'p1 texto {x:.2f} 5.80 "Grupo" Bookman Old Style 8 1 0'
    assert textos(hoja)["Luz"][1] == round(PRIMERA + 0.4, 2)


def prueba_una_fila_baja_lo_suyo():
    """Also a blank one, whose last cell draws nothing."""
    hoja = dibujar([[""] * 8, PREVISTA])
    assert textos(hoja)["Agua"] == (3.8, round(PRIMERA + DETALLE, 2))
    assert [r.rsplit(" ", 1)[1] for r in hoja.renglones if '"Agua"' in r] == [str(PREVISTO)]


def prueba_fecha_larga():
    assert fecha_larga(datetime(2004, 9, 1)) == "miércoles, 1 de septiembre de 2004"


def prueba_entre_dos_redondeos():
    caja = renglon("p1 caja", (0.125, 0.0), "0 0")
    assert {caja, *caja.otras} == {"p1 caja 0.12 0.00 0 0", "p1 caja 0.13 0.00 0 0"}
    assert not renglon("p1 caja", (0.1251, 0.0), "0 0").otras


def prueba_deja_la_ultima_fila():
    b = BancoDePapel(receipts=2, impresoras=["HP"])
    b.p.celda(2, 3)
    b.imprimir(1)
    rejilla = b.p.rejilla
    assert (rejilla.fila, rejilla.columna) == (21, 3) and b.p.modal is None
    assert rejilla.colores[2] == (FRANJA_B, 0) and rejilla.colores[21] == ELEGIDA
    b.imprimir(1)
    assert rejilla.colores[21] == ELEGIDA


def prueba_la_ultima_de_la_carga_tambien_queda_elegida():
    b = BancoDePapel(receipts=1, impresoras=["HP"]).imprimir(1)
    assert b.p.rejilla.fila == 21 and b.p.rejilla.colores[21] == ELEGIDA and b.p.fila_elegida


def prueba_el_pago_sin_grabar_sale():
    b = BancoDePapel(receipts=1)
    b.p.doble(1, 4)
    b.p.teclear_importe("16")
    b.imprimir()
    assert not b.p.editor_visible and b.p.rejilla.columna == 4
    assert any('"16,00"' in r for r in b.informe) and any('"Total Pendiente: 100,00"' in r for r in b.informe)


def prueba_una_entrada_abierta_lo_rehusa():
    b = BancoDePapel(receipts=1).nueva()
    b.p.imprimir()
    assert b.p.modal is None and b.informe is None


def prueba_la_fecha_como_esta_escrita():
    b = BancoDePapel(receipts=1)
    b.p.teclear_fecha("TxtFPrevisionD", "01/03/05")
    b.imprimir()
    assert any('"Previsión Desde:  01/03/05   Hasta:   31/03/2005"' in r for r in b.informe)
