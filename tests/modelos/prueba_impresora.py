"""The printer chooser in the model, and what the screen makes of its answer."""

from busco_impresora import NULA, BuscoImpresora
from prueba_informe import BancoDePapel
from valores import ErrorEjecucion

SIETE = ["Pantalla", *(f"HP {n}" for n in range(1, 7))]


def abrir(nombres=("Pantalla", "HP")):
    respuestas = []
    return BuscoImpresora(list(nombres), respuestas.append), respuestas


def a_la_vista(busco):
    return [n for n in range(len(busco.nombres)) if busco.a_la_vista(n)]


def pulsar(busco, *widgets):
    for widget in widgets:
        busco.pulsar(widget)
    return busco


def prueba_aceptar_al_punto_es_la_pantalla():
    busco, respuestas = abrir()
    assert [visto for visto in busco.ver() if 'Tag="1"' in visto] == ['Img(0) Tag="1" Visible=1']
    busco.pulsar("Boton1")
    assert respuestas == ["Pantalla"]


def prueba_cancelar():
    for cerrar in (lambda b: b.pulsar("Boton2"), lambda b: b.cerrar()):
        busco, respuestas = abrir()
        cerrar(pulsar(busco, "Img(1)"))
        assert respuestas == [NULA]


def prueba_nombre_e_icono_son_lo_mismo():
    for widget in ("Img(1)", "LblImpre(1)"):
        busco, respuestas = abrir()
        pulsar(busco, widget, "Boton1")
        assert respuestas == ["HP"]


def prueba_las_flechas_corren_la_tira():
    busco, respuestas = abrir(SIETE)
    assert a_la_vista(busco) == [0, 1, 2, 3, 4]
    pulsar(busco, "Img(0)", "ImgDer", "ImgDer")
    assert a_la_vista(busco) == [2, 3, 4, 5, 6] and busco.elegido == 0
    assert next(busco.ver()) == 'Img(0) Tag="1" Visible=0'
    pulsar(busco, "Boton1")
    assert respuestas == ["Pantalla"]


def prueba_a_la_derecha_se_pasa_de_llena():
    busco, _ = abrir(SIETE)
    pulsar(busco, *["ImgDer"] * 9)
    assert busco.primera == 4 and a_la_vista(busco) == [4, 5, 6]
    tres, _ = abrir(SIETE[:3])
    cuatro, _ = abrir(SIETE[:4])
    assert pulsar(tres, "ImgDer").primera == 0 and pulsar(cuatro, "ImgDer", "ImgDer").primera == 1


def prueba_a_la_izquierda_de_la_primera_no_hay_nada():
    busco, _ = abrir(SIETE)
    assert pulsar(busco, "ImgIzq").primera == 0 and pulsar(busco, "ImgDer", "ImgIzq", "ImgIzq").primera == 0


def prueba_lo_que_no_se_ve_no_se_pulsa():
    busco, _ = abrir(SIETE)
    assert pulsar(busco, "Img(6)").elegido == 0


def prueba_cancelado_no_hay_informe():
    """But an open editor is closed, with its amount taken."""
    b = BancoDePapel(receipts=1)
    b.p.doble(1, 4)
    b.p.teclear_importe("16")
    b.imprimir(boton="Boton2")
    assert b.informe is None and b.p.modal is None
    assert not b.p.editor_visible and b.p.rejilla.celdas[1][4] == "16,00"


def prueba_lo_que_no_es_un_importe_lo_para():
    b = BancoDePapel(receipts=1)
    b.p.doble(1, 4)
    b.p.teclear_importe("-5")
    try:
        b.imprimir()
        parado = False
    except ErrorEjecucion as error:
        parado = error.numero == 13
    assert parado and b.informe is None and b.p.editor_visible and b.p.modal is None


def prueba_el_texto_de_la_pantalla_es_el_que_cuenta():
    """A printer of that name opens the preview too, and one named like no choice is none."""
    assert BancoDePapel(receipts=1, pantalla="Screen", impresoras=["HP"]).imprimir().p.modal is None
    assert BancoDePapel(receipts=1, pantalla="Screen", impresoras=["Pantalla"]).imprimir(1).p.modal is not None
    assert BancoDePapel(receipts=1, pantalla=NULA).imprimir().informe is None


def prueba_sin_impresoras():
    b = BancoDePapel(receipts=1)
    b.p.imprimir()
    assert b.p.modal.nombres == ["Pantalla"]


def prueba_cerrar_se_lleva_lo_abierto():
    b = BancoDePapel(receipts=1)
    b.p.imprimir()
    b.p.cerrar()
    assert b.p.modal is None and b.informe is None
