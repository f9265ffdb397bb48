"""The arithmetic of the entry panel against worked examples."""

from alta_cuentas import (anno_de, avanzar, descuadra, enmascarar, limite_de_base, limite_de_irpf, llano, recibos,
                          repartir, repartir_resto, val)
from valores import CLAVE_REPETIDA, ErrorEjecucion
from alta_tablas import dinero_de, entero_de


def falla(numero, accion, *argumentos):
    try:
        list(accion(*argumentos) or ())
    except ErrorEjecucion as error:
        return error.numero == numero
    return False


def prueba_total_a_un_solo_tipo():
    assert repartir(116, 16) == ("100,00", "16,00")
    assert repartir(100, 16) == ("86,21", "13,79")
    assert enmascarar("86,21") == "86,21" and llano("86,21") * 16 / 100 < 13.795


def prueba_resto_entre_dos_tipos():
    assert repartir_resto(100 - (10 + 0.40), 16) == ("77,24", "12,36")


def prueba_limite_de_base():
    assert limite_de_base(100, 0, 16) == 86.21
    assert limite_de_base(100, 0, 16) < 86.23
    assert limite_de_base(1190, 150, 16) == 1155.17


def prueba_limite_de_irpf():
    assert limite_de_irpf(100, 15) == 115
    assert limite_de_irpf(33.33, 15) == 38.3295


def prueba_un_centimo_pasa_y_dos_no():
    assert not descuadra(100.01, 100) and not descuadra(99.99, 100) and not descuadra(100, 100)
    assert descuadra(100.02, 100) and descuadra(99.98, 100)


def prueba_lecturas():
    assert val("7,5") == 7 and val("15,5") == 15 and val("1.234,50") == 1.234 and val("") == val(",5") == val("-") == 0
    assert llano("-1.234,50") == -1234.5 and llano(",5") == 0.5 and llano("12.34") == 1234
    assert all(falla(13, llano, texto) for texto in ("", "-", ",", "1,2,3", "0-5"))
    assert enmascarar("") == "" and enmascarar("1234,565") == "1.234,57" and enmascarar("-0,001") == "0,00"
    assert anno_de("") == anno_de("99/99/2005") == "" and anno_de("01/02/2004") == "2004"


def prueba_recibos():
    def importes(total, cuantos):
        return [importe for _, importe in recibos(total, cuantos, 30, 30, "31/01/2005")]

    assert importes(100, 3) == ["33,33", "33,33", "33,34"]
    assert importes(100.01, 2) == ["50,01", "50,00"]
    assert importes(10, 1) == ["10,00"]
    assert importes(10, 2.5) == ["4,00", "4,00"]
    assert [fecha for fecha, _ in recibos(9, 3, 30, 30, "31/01/2005")] == ["02/03/2005", "01/04/2005", "01/05/2005"]
    assert [fecha for fecha, _ in recibos(9, 2, 0, 0, "31/01/2005")] == ["31/01/2005"] * 2
    assert falla(5, recibos, 9, 2, 30, 9999, "31/12/9998") and falla(13, recibos, 9, 2, 30, 30, "")


def prueba_proponer_fecha():
    assert avanzar("15/03/2005", "m", 1) == "15/04/2005"
    assert avanzar("15/03/2005", "yyyy", 30) == "15/03/2035"
    assert avanzar("31/01/2005", "m", 1) == "28/02/2005"
    assert falla(5, avanzar, "01/01/9999", "yyyy", 1)


def prueba_columnas():
    assert str(dinero_de("1.234,5")) == "1234.50" and str(dinero_de("86,217")) == "86.22" and dinero_de("") is None and entero_de("007") == 7
    assert falla(CLAVE_REPETIDA, entero_de, "7,5") and falla(CLAVE_REPETIDA, dinero_de, "-")
