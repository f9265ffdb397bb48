"""The preview in the model."""

from listados import BARRA, HUECO, MARGEN, OPCIONES, Listados
from prueba_informe import BancoDePapel

DISENO = 15360, 11520
VISTA = 11520 - BARRA - OPCIONES - MARGEN


def de(paginas, pantalla=DISENO, referencia=DISENO):
    return Listados(paginas, pantalla, referencia)


def prueba_se_abre_al_cien_por_cien():
    b = BancoDePapel(receipts=1).imprimir()
    assert b.p.modal.ver().__next__() == 'CbxPor Text="100 %" ListIndex=1'
    assert (b.p.modal.alto, b.p.modal.paginas, b.p.modal.vista) == (16838, 1, 10420)


def prueba_una_pagina_en_una_pantalla_mas_alta():
    """A page as tall as the view needs no bar either."""
    alta = de(1, (20000, 20000), (20000, 20000))
    assert not alta.con_barra and alta.izquierda == (20000 - 11906) / 2 and alta.arriba == 960
    justa = 16838 + BARRA + OPCIONES + MARGEN
    assert not de(1, (20000, justa), (20000, justa)).con_barra and de(1, (20000, justa - 1), (20000, justa - 1)).con_barra


def prueba_encajar():
    una, tres = de(1), de(3)
    for previa in (una, tres):
        previa.elegir("Encajar en Pantalla")
        assert previa.alto_de_pagina == VISTA and previa.ancho_de_pagina == VISTA * 11906 / 16838
    assert not una.con_barra and una.maximo == 0
    assert tres.con_barra and tres.alto == 3 * VISTA + 2 * HUECO and tres.maximo == 20
    assert tres.paginas_en() == [0, VISTA + HUECO, 2 * (VISTA + HUECO)]


def prueba_al_cincuenta():
    dos = de(2)
    dos.elegir("50 %")
    assert dos.alto == 2 * 8419 + 100 and dos.maximo == int((16938 - VISTA) / 1042) == 6
    una = de(1)
    una.elegir("50 %")
    assert una.maximo == -1 and not una.con_barra


def prueba_otro_porcentaje_vuelve_a_la_primera():
    previa = de(2)
    previa.mover(5)
    assert previa.valor == 5 and previa.arriba == 960 - VISTA * 5 // 10
    previa.elegir("50 %")
    assert (previa.valor, previa.arriba) == (0, 960)


def prueba_el_ultimo_paso_llega_al_fondo():
    previa = de(3)
    previa.mover(previa.maximo)
    assert previa.arriba + previa.alto == 960 + VISTA
    previa.mover(previa.maximo - 1)
    assert previa.arriba == 960 - VISTA * (previa.maximo - 1) // 10
    previa.mover(-7)
    assert (previa.valor, previa.arriba) == (0, 960)
    previa.mover(1000)
    assert previa.valor == previa.maximo


def prueba_una_barra_que_no_se_ve_no_se_mueve():
    previa = de(1)
    previa.elegir("50 %")
    previa.mover(3)
    assert previa.valor == 0


def prueba_otra_pantalla():
    """The bar on top keeps its height; a screen as wide as the one designed for is that one."""
    assert de(1, (12800, 9600)).vista == 9600 - BARRA - 400 - MARGEN and de(1, (12800, 9600)).borde == 800
    assert de(1, (15360, 8640)).vista == 8640 - BARRA - OPCIONES - MARGEN
    assert de(1, (7001, 5003)).borde == 390 + 26


def prueba_cada_informe_es_otro():
    b = BancoDePapel(receipts=1).imprimir()
    primera = b.p.modal
    primera.elegir("50 %")
    b.p.cerrar_modal()
    b.imprimir()
    assert b.p.modal is not primera and b.p.modal.porcentaje == "100 %"
