#include "sorvex/fechas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "valores/fecha.h"

using sorvex::ConvertirFecha;

namespace {

struct Caso {
  std::string fecha;
  std::string esperada;
};

void Comprobar(const std::vector<Caso>& casos, const char* desde, const char* hacia) {
  for (const Caso& caso : casos) {
    EXPECT_EQ(ConvertirFecha(caso.fecha, desde, hacia), caso.esperada)
        << '"' << caso.fecha << "\" " << desde << " -> " << hacia;
  }
}

const std::vector<std::string> kNoSonFecha = {"",
                                              " ",
                                              "hoy",
                                              "15",
                                              "15/03",
                                              "15/03/",
                                              "15/03/5",
                                              "15/03/205",
                                              "15/03/20055",
                                              "15//2005",
                                              "/03/2005",
                                              "115/03/2005",
                                              "15/003/05",
                                              "0/03/2005",
                                              "15/0/2005",
                                              "15/13/2005",
                                              "15/03/0099",
                                              "15/03/2005x",
                                              "15+03+05",
                                              "1503",
                                              "150305x",
                                              "1503205",
                                              "150320055",
                                              "00032005",
                                              "15132005",
                                              "-5/03/2005",
                                              "15/marzo/05",
                                              "15/03/2oo5",
                                              "0:00:00",
                                              "10:00:00",
                                              "15 03 2005",
                                              "15/03/2005 25:00:00",
                                              "15/03/2005 10:60",
                                              "15/03/2005 tarde",
                                              "15/03/2005 10",
                                              "15/03/2005  10:00 x",
                                              "1/2/3/4",
                                              "..",
                                              "١٥/٠٣/٢٠٠٥"};

TEST(ConvertirFecha, LoTecleadoQuedaEnDiezCaracteres) {
  Comprobar({{"15/03/2005", "15/03/2005"},
             {"15/03/05", "15/03/2005"},
             {"5/3/05", "05/03/2005"},
             {"5/3/2005", "05/03/2005"},
             {"05/3/2005", "05/03/2005"},
             {"15-03-2005", "15/03/2005"},
             {"15.03.2005", "15/03/2005"},
             {"5-3.05", "05/03/2005"},
             {"15032005", "15/03/2005"},
             {"150305", "15/03/2005"},
             {" 15/03/2005 ", "15/03/2005"},
             {"01/01/0100", "01/01/0100"},
             {"31/12/9999", "31/12/9999"}},
            "D", "D");
}

TEST(ConvertirFecha, DosCifrasDeAnioSonDe1930A2029) {
  Comprobar({{"01/01/00", "01/01/2000"},
             {"01/01/29", "01/01/2029"},
             {"01/01/30", "01/01/1930"},
             {"01/01/99", "01/01/1999"},
             {"010129", "01/01/2029"},
             {"010130", "01/01/1930"}},
            "D", "D");
}

TEST(ConvertirFecha, UnDiaPasadoElFinDeMesEsElUltimoDelMes) {
  Comprobar({{"31/01/2005", "31/01/2005"},
             {"31/02/2005", "28/02/2005"},
             {"31/02/2004", "29/02/2004"},
             {"31/02/1900", "28/02/1900"},
             {"31/02/2000", "29/02/2000"},
             {"30/02/2005", "28/02/2005"},
             {"29/02/2005", "28/02/2005"},
             {"29/02/2004", "29/02/2004"},
             {"31/03/2005", "31/03/2005"},
             {"31/04/2005", "30/04/2005"},
             {"31/06/2005", "30/06/2005"},
             {"31/09/2005", "30/09/2005"},
             {"31/11/2005", "30/11/2005"},
             {"31/12/2005", "31/12/2005"},
             {"32/01/2005", "31/01/2005"},
             {"99/04/05", "30/04/2005"},
             {"31022005", "28/02/2005"},
             {"310205", "28/02/2005"}},
            "D", "D");
}

TEST(ConvertirFecha, LaHoraDelRelojSeDeja) {
  Comprobar({{"15/03/2005 0:00:00", "20050315"},
             {"15/03/2005 9:05:07", "20050315"},
             {"15/03/2005 23:59:59", "20050315"},
             {"15/03/2005 10:30", "20050315"},
             {"15032005 10:30", "20050315"},
             {"15/03/2005", "20050315"}},
            "D", "R");
}

TEST(ConvertirFecha, TomaElTextoDelRelojDeCualquierDia) {
  for (int dias = 1; dias < 60'000; dias += 97) {
    const services::FechaHora momento{dias, dias % 86'400};
    const services::Calendario dia = services::Descomponer(momento);
    const std::string texto = ConvertirFecha(services::TextoDeFecha(momento), "D", "R");
    EXPECT_EQ(texto, std::to_string(dia.Anio * 10'000 + dia.Mes * 100 + dia.Dia));
  }
}

TEST(ConvertirFecha, DeLoMostradoALoGuardado) {
  Comprobar({{"01/02/2003", "20030201"},
             {"1-2-3003", "30030201"},
             {"01/02/03", "20030201"},
             {"31/12/99", "19991231"},
             {"01022003", "20030201"},
             {"31/02/2005", "20050228"},
             {"01/01/0100", "01000101"}},
            "D", "R");
}

TEST(ConvertirFecha, DeLoGuardadoALoMostrado) {
  Comprobar({{"20030201", "01/02/2003"},
             {"19991231", "31/12/1999"},
             {"20040229", "29/02/2004"},
             {" 20030201 ", "01/02/2003"},
             {"01000101", "01/01/0100"}},
            "R", "D");
}

TEST(ConvertirFecha, LoGuardadoSeNormaliza) {
  Comprobar({{"20030201", "20030201"},
             {"20030201  ", "20030201"},
             {"20050231", "20050228"},
             {"20050400", ""},
             {"20051301", ""},
             {"00990101", ""}},
            "R", "R");
}

TEST(ConvertirFecha, LoQueNoEsFechaVuelveIgualSoloComoMostrado) {
  for (const std::string& texto : kNoSonFecha) {
    EXPECT_EQ(ConvertirFecha(texto, "D", "D"), texto);
    EXPECT_EQ(ConvertirFecha(texto, "D", "R"), "") << texto;
  }
}

TEST(ConvertirFecha, LoGuardadoQueNoEsFechaQuedaVacio) {
  for (const std::string texto : {"", " ", "2005031", "200503155", "2005/03/15", "15/03/2005",
                                  "2005O315", "20050015", "20050300", "-2005031"}) {
    EXPECT_EQ(ConvertirFecha(texto, "R", "D"), "") << texto;
    EXPECT_EQ(ConvertirFecha(texto, "R", "R"), "") << texto;
  }
}

TEST(ConvertirFecha, IdaYVueltaDanLaMismaFecha) {
  const int ultimo = services::HacerFecha(2100, 12, 31).Dias;
  for (int dias = services::HacerFecha(1930, 1, 1).Dias; dias <= ultimo; ++dias) {
    const std::string mostrada = services::TextoDeFecha({dias, 0});
    ASSERT_EQ(ConvertirFecha(ConvertirFecha(mostrada, "D", "R"), "R", "D"), mostrada);
  }
}

TEST(ConvertirFecha, ElOrdenDeLoGuardadoEsElDeLasFechas) {
  std::string anterior;
  const int ultimo = services::HacerFecha(2012, 12, 31).Dias;
  for (int dias = services::HacerFecha(1995, 1, 1).Dias; dias <= ultimo; ++dias) {
    const std::string guardada = ConvertirFecha(services::TextoDeFecha({dias, 0}), "D", "R");
    ASSERT_LT(anterior, guardada);
    anterior = guardada;
  }
}

}  // namespace
