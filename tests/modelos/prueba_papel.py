#!/usr/bin/env python3
"""What the model of report, preview and chooser foretells in known sheets and stories."""

import sys

import prueba_impresora
import prueba_informe
import prueba_listados
from prueba_altas import principal

if __name__ == "__main__":
    sys.exit(principal((prueba_informe, prueba_listados, prueba_impresora)))
