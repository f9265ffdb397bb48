"""The statements that the scenarios print, against the table of the system's.

Each statement that the component runs is in the table, and each of the table is run; `sentencias_aparte.txt` tells of
those of which it isn't so, and why. What can't even be taken apart, such as a quote left open by a value, is none.
"""

import re
import subprocess

IMPRESA = re.compile(r'^(?:datos|local) (lectura|optimista|pesimista) "((?:\\.|[^"\\])*)"$', re.M)


def escritas(salida):
    """Mode and text of each statement that a scenario printed."""
    for modo, texto in IMPRESA.findall(salida):
        yield modo, re.sub(r"\\(.)", lambda signo: "\n" if signo[1] == "n" else signo[1], texto)


def lineas_de(programa, entrada="", *opciones):
    fin = subprocess.run([programa, *opciones], input=entrada, capture_output=True, text=True, timeout=100, check=True)
    return fin.stdout.splitlines()


def quejas(programa, salidas, aparte):
    """What is wrong, one text for each."""
    sentencias = sorted({sentencia for salida in salidas for sentencia in escritas(salida)})
    formas = lineas_de(programa, "".join(texto + "\0" for _, texto in sentencias))
    if len(formas) != len(sentencias) or len(sentencias) < 100:
        return ["No se han leído las sentencias de los guiones"]
    corridas = {f"{modo} {forma}" for (modo, _), forma in zip(sentencias, formas) if forma}
    sistema = set(lineas_de(programa, "", "--sistema"))
    dispares = corridas ^ sistema
    return ([f"No está en la tabla de sentencias: {forma!r}" for forma in sorted(corridas - sistema - set(aparte))] +
            [f"Ningún guion llega a la sentencia {forma!r}" for forma in sorted(sistema - corridas - set(aparte))] +
            [f"Sobra en sentencias_aparte.txt: {forma!r}" for forma in sorted(set(aparte) - dispares)])
