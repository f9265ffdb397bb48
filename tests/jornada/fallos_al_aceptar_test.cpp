#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "jornada/partida.h"

// What each driver call that fails in an acceptance leaves: what is told, where the focus is and
// what is written.

namespace {

using jornada::Partida;

const std::string kUnConcepto = R"(
reloj 2005-03-15 10:00:00
datos INSERT INTO ProvConceptos VALUES ('400','Luz')
cargar
)";

/// Two rates, two receipts and a forecast.
const std::string kEntrada = R"(
pulsar BotonNuevo
teclear TxtConcepto "400"
teclear TxtNFra "F1"
teclear TxtIFra "223"
foco TxtNFra
pulsar Chk7
teclear TxtB7 "100"
foco TxtIFra
foco TxtNFra
pulsar OptAplazado
teclear TxtNRecibos "2"
tecla Intro
teclear TxtDias "1"
tecla Intro
teclear TxtCadencia "1"
tecla Intro
pulsar OptGenerar
teclear TxtCada "1"
elegir CboPlazo "Meses"
foco TxtNFra
)";

/// How many rows there are of invoices, bases, receipts and forecasts.
const std::string kCuantasFilas =
    "consulta local SELECT (SELECT count(*) FROM TempProvFacturas), (SELECT count(*) FROM "
    "TempProvBasesIva), (SELECT count(*) FROM TempProvVencimientos), (SELECT count(*) FROM "
    "TempProvPrevisionPagos)\n";

/// Its lines in one, without the words of the failure that was asked for.
std::string EnUnaLinea(const std::string& salida) {
  std::string linea = std::regex_replace(salida, std::regex("\\(1 filas\\)\n"), "");
  linea = std::regex_replace(linea, std::regex("( \"|\\\\n)Fallo provocado en la conexión \\w+\"?"),
                             "");
  linea = std::regex_replace(linea, std::regex("\n(.)"), " $1");
  return linea;
}

/// A line for each call, up to the last one that an acceptance makes.
std::string Aceptar(const std::string& base, const std::string& numero) {
  std::string todas = "\n";
  for (int n = 1; n < 100; ++n) {
    Partida partida;
    EXPECT_EQ(partida.Jugar(kUnConcepto + kEntrada).Salida, "");
    const std::string fallo = "fallo " + base + " " + std::to_string(n) + " " + numero + "\n";
    const Partida::Jugada jugada =
        partida.Jugar(fallo + "pulsar BtnAceptar\navisos\nfoco?\n" + kCuantasFilas);
    if (jugada.Salida == "BotonNuevo\n1|2|2|1\n(1 filas)\n") return todas;
    todas += std::to_string(n) + ": " + EnUnaLinea(jugada.Salida);
  }
  ADD_FAILURE() << "no acaba";
  return todas;
}

TEST(FallosAlAceptar, LosDeLaConexionLocal) {
  EXPECT_EQ(Aceptar("local", "0x80004005"), R"(
1: error -2147467259 BtnAceptar 0|0|0|0
2: error -2147467259 BtnAceptar 0|0|0|0
3: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|2|0
4: error -2147467259 BtnAceptar 0|0|0|1
5: error -2147467259 BtnAceptar 0|0|0|1
6: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 0|0|0|1
7: error -2147467259 BtnAceptar 1|0|0|1
8: error -2147467259 BtnAceptar 1|0|0|1
9: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|0|0|1
10: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|1|0|1
11: error -2147467259 BtnAceptar 1|2|0|1
12: error -2147467259 BtnAceptar 1|2|0|1
13: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|0|1
14: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|1|1
15: error -2147467259 BtnAceptar 0|0|0|0
16: error -2147467259 BotonNuevo 1|2|2|1
17: error -2147467259 BotonNuevo 1|2|2|1
18: error -2147467259 BotonNuevo 1|2|2|1
19: error -2147467259 BotonNuevo 1|2|2|1
20: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|2|1
21: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|2|1
22: error -2147467259 BotonNuevo 1|2|2|1
23: error -2147467259 BotonNuevo 1|2|2|1
24: error -2147467259 BotonNuevo 1|2|2|1
25: error -2147467259 BotonNuevo 1|2|2|1
26: error -2147467259 BotonNuevo 1|2|2|1
27: aviso "Nº Error:-2147467259 16 "" -> aceptar BotonNuevo 1|2|2|1
28: error -2147467259 BotonNuevo 1|2|2|1
29: error -2147467259 BotonNuevo 1|2|2|1
30: error -2147467259 BotonNuevo 1|2|2|1
)");
}

TEST(FallosAlAceptar, LosDeLaConexionLocalConUnValorQueNoCabe) {
  EXPECT_EQ(Aceptar("local", "0x80040E21"), R"(
1: error -2147217887 BtnAceptar 0|0|0|0
2: error -2147217887 BtnAceptar 0|0|0|0
3: aviso "Esta Previsión ya exite " 16 "Error" -> aceptar BotonNuevo 1|2|2|0
4: error -2147217887 BtnAceptar 0|0|0|1
5: error -2147217887 BtnAceptar 0|0|0|1
6: aviso "Esta Factura ya exite " 16 "Error" -> aceptar TxtNFra 0|0|0|1
7: error -2147217887 BtnAceptar 1|0|0|1
8: error -2147217887 BtnAceptar 1|0|0|1
9: aviso "Error al grabar las bases de Iva ya exite " 16 "Error" -> aceptar TxtB16 1|0|0|1
10: aviso "Error al grabar las bases de Iva ya exite " 16 "Error" -> aceptar TxtB16 1|1|0|1
11: error -2147217887 BtnAceptar 1|2|0|1
12: error -2147217887 BtnAceptar 1|2|0|1
13: aviso "Error al Generar Recibos " 16 "Error" -> aceptar BotonNuevo 1|2|0|1
14: aviso "Error al Generar Recibos " 16 "Error" -> aceptar BotonNuevo 1|2|1|1
15: error -2147217887 BtnAceptar 0|0|0|0
16: error -2147217887 BotonNuevo 1|2|2|1
17: error -2147217887 BotonNuevo 1|2|2|1
18: error -2147217887 BotonNuevo 1|2|2|1
19: error -2147217887 BotonNuevo 1|2|2|1
20: aviso "Error al cargar Factura" 16 "Error" -> aceptar BotonNuevo 1|2|2|1
21: aviso "Error al cargar Factura" 16 "Error" -> aceptar BotonNuevo 1|2|2|1
22: error -2147217887 BotonNuevo 1|2|2|1
23: error -2147217887 BotonNuevo 1|2|2|1
24: error -2147217887 BotonNuevo 1|2|2|1
25: error -2147217887 BotonNuevo 1|2|2|1
26: error -2147217887 BotonNuevo 1|2|2|1
27: aviso "Error al calcular vencimientos " 16 "Error" -> aceptar BotonNuevo 1|2|2|1
28: error -2147217887 BotonNuevo 1|2|2|1
29: error -2147217887 BotonNuevo 1|2|2|1
30: error -2147217887 BotonNuevo 1|2|2|1
)");
}

TEST(FallosAlAceptar, LosDeLasTablasDeLaEmpresa) {
  EXPECT_EQ(Aceptar("datos", "0x80004005"), R"(
1: error -2147467259 BtnAceptar 0|0|0|1
2: error -2147467259 BtnAceptar 0|0|0|1
3: error -2147467259 BtnAceptar 1|2|0|1
4: error -2147467259 BtnAceptar 1|2|0|1
5: error -2147467259 BtnAceptar 1|2|1|1
6: error -2147467259 BtnAceptar 1|2|1|1
7: error -2147467259 BotonNuevo 1|2|2|1
)");
}

}  // namespace
