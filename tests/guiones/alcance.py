"""Every text that the component says and every statement that it runs is reached by some scenario, and the table of
statements that a connection runs has those and no others.

The texts and the statements are read from the component's sources; what the scenarios reach, from playing them all
with their statements printed at the end. A literal of the sources that none reaches fails, unless
`fuera_de_alcance.txt` tells why none can; and so does a line there that isn't needed any more.

    alcance.py --guion PROGRAM --formas PROGRAM --fuentes SRC --guiones FOLDER
"""

import argparse
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import formas

PIEZA = re.compile(r'//[^\n]*|/\*.*?\*/|"((?:\\.|[^"\\\n])*)"|\'(?:\\.|[^\'\\])+\'|\s+|\w+|.', re.S)
SENTENCIA = re.compile(r"\b(SELECT|DELETE|FROM|From|WHERE|ORDER BY|like)\b|^' *(And|AND|OR|Order)|(Temp|Prov|Caja)\w*\.|^\.\w+")
SALAS = ("cash", "entry", "list", "print", "shell", "store")


def literales(fuente):
    """The string literals of a C++ text, those that stand side by side joined to one."""
    fuente = re.sub(r"^\s*#include.*$", "", fuente, flags=re.M)
    actual = None
    for pieza in PIEZA.finditer(fuente):
        texto = pieza.group(0)
        if texto.isspace() or texto.startswith(("//", "/*")):
            continue
        if pieza.group(1) is not None:
            actual = (actual or "") + pieza.group(1)
        elif actual is not None:
            yield actual
            actual = None


def de_las_fuentes(carpeta):
    """Each text or piece of a statement with the file that it stands in. One word alone may be a name: it is left out."""
    for sala in SALAS:
        for fichero in sorted((carpeta / sala).glob("*.[ch]*")):
            for literal in literales(fichero.read_text(encoding="utf-8")):
                texto = literal.replace("\\n", "\n").replace('\\"', '"')
                if SENTENCIA.search(texto) or (" " in texto.strip() and re.search(r"\w\w", texto)):
                    yield texto, f"{sala}/{fichero.name}"


def jugar(programa, guion):
    """What a scenario claims, and what it prints, all the statements that it ran included."""
    texto = guion.read_text(encoding="utf-8")
    fin = subprocess.run([programa, "-"], input=texto + "\navisos\nsentencias\n", capture_output=True,
                         text=True, timeout=100, check=False)
    if fin.returncode != 0:
        sys.exit(f"{guion.name}: termina con {fin.returncode}\n{fin.stderr}")
    reclamado = "\n".join(linea for linea in texto.splitlines()
                          if linea.startswith("espera") and not linea.startswith("espera consulta"))
    return reclamado, fin.stdout


def exentas(fichero):
    """Text by text, its reason: a line `text => reason`, `\\n` for a line break."""
    lineas = [linea for linea in fichero.read_text(encoding="utf-8").splitlines() if linea and not linea.startswith("#")]
    pares = [linea.split(" => ", 1) for linea in lineas]
    return {texto.replace("\\n", "\n"): razon for texto, razon in pares}


def main():
    opciones = argparse.ArgumentParser()
    opciones.add_argument("--guion", required=True)
    opciones.add_argument("--formas", required=True)
    opciones.add_argument("--fuentes", type=Path, required=True)
    opciones.add_argument("--guiones", type=Path, required=True)
    dado = opciones.parse_args()
    with ThreadPoolExecutor(2) as equipo:
        jugado = list(equipo.map(lambda g: jugar(dado.guion, g), sorted(dado.guiones.glob("*.guion"))))
    visto = "\n".join(f"{reclamado}\n{impreso}" for reclamado, impreso in jugado)
    visto = visto.replace("\\n", "\n").replace('\\"', '"')
    fuera = exentas(dado.guiones / "fuera_de_alcance.txt")
    textos = dict(de_las_fuentes(dado.fuentes))
    if len(textos) < 100:
        sys.exit("No se han leído las fuentes")
    sobran = [texto for texto in fuera if texto not in textos or texto in visto]
    faltan = [f"{donde}: {texto!r}" for texto, donde in textos.items() if texto not in visto and texto not in fuera]
    quejas = ([f"Ningún guion llega a {falta}" for falta in faltan] +
              [f"Sobra en fuera_de_alcance.txt: {sobra!r}" for sobra in sobran] +
              formas.quejas(dado.formas, [impreso for _, impreso in jugado],
                            exentas(dado.guiones / "sentencias_aparte.txt")))
    for queja in quejas:
        print(queja)
    return 1 if quejas else 0


if __name__ == "__main__":
    sys.exit(main())
