#include <gtest/gtest.h>

#include <random>

#include "apoyo/injerto.h"
#include "platform/carpeta_temporal.h"

// Values of all kinds in every place of every statement of the system.

namespace {

using apoyo::Fin;
using apoyo::Molde;

const std::vector<std::string> kAviesos = {
    "x' or Año like '2005",
    "' or ''='",
    "x' Or 1=1 Or NConcepto like '",
    "F1'--",
    "F1'; --",
    "F1'/*",
    "F1' And '1'='1",
    "' Or NConcepto <> '",
    "F1'' or ''='",
    "''''",
    "'' ''",
    "F1' '",
    "2005' And TempProvVencimientos.FechaVto like '20050310",
    "F1' AND TempProvVencimientos.FechaVto like '20050310",
    "F1' And TempProvVencimientos.FechaVto like '20050310",
    "400' And TempProvVencimientos.FechaVto like '20050310'And TempProvVencimientos.Año like '2005",
    "2005' ORDER BY TempProvVencimientos.FechaVto",
    "2005'And TempProvVencimientos.Año like '2005",
    "F1') Or (1 = '1",
    "F1' Or Factura Is Null Or Factura = '",
    "F1' Group By Factura",
    "400 Or Tipo > 0",
    "400 And Tipo like 400",
    "400 And CajaPagos.Año like '2005'",
    "400;",
    "400--",
    "400/*",
    "(400)",
    "- 400",
    "--400",
    "+400",
    "400.0",
    "400.",
    ".5",
    "4e2",
    "0x190",
    "400,0",
    "\t400\n",
    "400\f",
    "\xC2\xA0"
    "400",
    "0000000000000400",
    "00000400",
    "9007199254740993",
    "99999999999999999999",
    "-0",
    "True",
    "Null",
    "Tipo",
    "TempCajaPagos.Tipo",
    "CajaPagos.Tipo",
    "NConcepto",
    "'400'",
    "#3/2/2005#",
    "#1/1/1000# Or #1/1/2005#",
    "Sum(Importe)",
    "Not 400",
    "400 GROUP BY Tipo",
    "400 ORDER BY Tipo",
    "SELECT",
    "1/1/2005# And FechaHora <= #1/1/2005",
    "3/2/2005",
    " 3/2/2005 ",
    "13/13/2005",
    "6/011/2005",
    "2/03/2005 9:-0",
    "6/1/02005",
    "3/2/222 ",
    "3/2/2005 9:30",
    "3/2/2005 09:30:00 ",
    "03/02/2005 9:30",
    "02/03/2005",
    " 02/03/2005 9:30:00 ",
    "2/3/5 9:30",
    "9:30",
    "2005-03-02 09:30:00",
    "2005-03-02T09:30:00",
    "2005-03-02",
    "38413",
    std::string("F1\0", 3),
    std::string("F1\0' Or", 7),
    std::string("400\0", 4),
    "F1\n",
    "F1\r\n",
    " F1",
    "F1 ",
    "f1",
    "É1",
    "e1",
    "\xC3",
    "F1\xFF",
    "%",
    "_",
    "L%",
    "l_z",
    "%%%",
    "%'%",
    "[F]1",
    "\"F1\"",
    "`F1`",
    "{F1}",
    "?",
    "?1",
    ":a",
    "@a",
    "\\'",
    "F1\\' Or 1=1",
    "’",
    "ʼ",
    "＇",
    std::string(20, '\''),
    std::string(21, '\''),
    std::string(300, 'x')};

class ValoresInjertados : public testing::Test {
 protected:
  void Probar(const Molde& molde, const apoyo::Valores& valores) {
    const Fin fin = injerto.Probar(molde, valores);
    ++cuenta[static_cast<std::size_t>(fin)];
    EXPECT_NE(fin, Fin::Distinta) << molde.Con(valores);
  }
  /// In each of its places, and in all of them at once.
  void EnTodosLosHuecos(const Molde& molde, const std::string& valor) {
    apoyo::Valores valores = molde.Llanos();
    for (std::string& uno : valores) {
      const std::string llano = std::exchange(uno, valor);
      Probar(molde, valores);
      uno = llano;
    }
    if (valores.size() > 1) Probar(molde, apoyo::Valores(valores.size(), valor));
  }

  pruebas::CarpetaTemporal carpeta;
  apoyo::Injerto injerto{carpeta.Fichero("datos.db")};
  std::array<std::size_t, 3> cuenta{};
};

TEST_F(ValoresInjertados, LosLlanosNoSeRechazan) {
  for (const Molde& molde : injerto.Moldes()) {
    EXPECT_EQ(injerto.Probar(molde, molde.Llanos()), Fin::Igual) << molde.Con(molde.Llanos());
  }
}

TEST_F(ValoresInjertados, LosAviesosHallanLoSuyoONada) {
  for (const Molde& molde : injerto.Moldes()) {
    for (const std::string& valor : kAviesos) EnTodosLosHuecos(molde, valor);
  }
  EXPECT_GT(cuenta[0], 1000U);
  EXPECT_GT(cuenta[1], 1000U);
}

/// What the rows have in a column.
const apoyo::Valores& Vecinos(const std::string& columna) {
  if (columna == "NConcepto" || columna == "Tipo") return apoyo::kConceptosVecinos;
  if (columna == "Factura" || columna == "NFactura") return apoyo::kFacturasVecinas;
  if (columna == "Descripcion") return apoyo::kNombresVecinos;
  if (columna == "FechaHora") return apoyo::kMomentosVecinos;
  return columna == "Año" ? apoyo::kAniosVecinos : apoyo::kFechasVecinas;
}

TEST_F(ValoresInjertados, LosDeLasFilasTambien) {
  for (const Molde& molde : injerto.Moldes()) {
    apoyo::Valores valores = molde.Llanos();
    for (std::size_t i = 0; i < valores.size(); ++i) {
      const std::string llano = valores[i];
      for (const std::string& valor : Vecinos(molde.Huecos()[i].Columna)) {
        valores[i] = valor;
        Probar(molde, valores);
      }
      valores[i] = llano;
    }
  }
}

TEST_F(ValoresInjertados, LosHechosDeTrozosTambien) {
  const std::vector<std::string> trozos = {"'",
                                           "''",
                                           "F1",
                                           "400",
                                           "2005",
                                           " ",
                                           " or ",
                                           " And ",
                                           "--",
                                           "(",
                                           ")",
                                           "#",
                                           "%",
                                           "_",
                                           "=",
                                           "''=''",
                                           " like ",
                                           "Año",
                                           "TempProvVencimientos.FechaVto",
                                           "-",
                                           "\t",
                                           ";",
                                           "x"};
  std::minstd_rand azar(20261122);
  std::vector<std::string> valores(25);
  for (std::string& valor : valores) {
    for (auto quedan = 1 + azar() % 6; quedan > 0; --quedan)
      valor += trozos[azar() % trozos.size()];
  }
  for (const Molde& molde : injerto.Moldes()) {
    for (const std::string& valor : valores) EnTodosLosHuecos(molde, valor);
  }
}

}  // namespace
