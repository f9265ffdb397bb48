#include "valores/fecha.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "apoyo/errores.h"
#include "valores/error.h"

using services::Calendario;
using services::Descomponer;
using services::DiasDelMes;
using services::ErrorEjecucion;
using services::Fecha;
using services::FechaHora;
using services::FechaLarga;
using services::HacerFecha;
using services::LeerFecha;
using services::SumarFecha;
using services::TextoDeFecha;

namespace {

const FechaHora kPrimera = HacerFecha(100, 1, 1);
const FechaHora kUltima = HacerFecha(9999, 12, 31, 23, 59, 59);

std::int32_t ErrorAlSumar(const std::string& unidad, std::int64_t cuantos, FechaHora desde) {
  return apoyo::NumeroDeError([&] { return SumarFecha(unidad, cuantos, desde); });
}

TEST(Fecha, ElDiaCeroEsElTreintaDeDiciembre) {
  EXPECT_EQ(HacerFecha(1899, 12, 30), FechaHora{});
  EXPECT_TRUE(HacerFecha(1899, 12, 30).EsCero());
  EXPECT_FALSE(HacerFecha(1899, 12, 30, 0, 0, 1).EsCero());
  EXPECT_EQ(HacerFecha(1900, 1, 1).Dias, 2);
  EXPECT_EQ(HacerFecha(1970, 1, 1).Dias, 25569);
  EXPECT_EQ(HacerFecha(2005, 3, 15, 10, 5, 7), (FechaHora{38426, 36307}));
}

TEST(Fecha, DescomponerDeshaceLaFecha) {
  const Calendario fecha = Descomponer(HacerFecha(2024, 2, 29, 23, 59, 59));
  EXPECT_EQ(fecha.Anio, 2024);
  EXPECT_EQ(fecha.Mes, 2);
  EXPECT_EQ(fecha.Dia, 29);
}

TEST(Fecha, DiasDeCadaMes) {
  const std::vector<int> dias = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int mes = 1; mes <= 12; ++mes) {
    EXPECT_EQ(DiasDelMes(2023, mes), dias[static_cast<std::size_t>(mes) - 1]) << mes;
  }
}

TEST(Fecha, FebreroDeLosBisiestos) {
  EXPECT_EQ(DiasDelMes(2024, 2), 29);
  EXPECT_EQ(DiasDelMes(2000, 2), 29);
  EXPECT_EQ(DiasDelMes(1900, 2), 28);
  EXPECT_EQ(DiasDelMes(2100, 2), 28);
}

TEST(Fecha, SumarConservaLaHora) {
  const FechaHora desde = HacerFecha(2023, 1, 31, 10, 30, 5);
  EXPECT_EQ(SumarFecha("d", 1, desde), HacerFecha(2023, 2, 1, 10, 30, 5));
  EXPECT_EQ(SumarFecha("M", 1, desde), HacerFecha(2023, 2, 28, 10, 30, 5));
  EXPECT_EQ(SumarFecha("YYYY", 1, desde), HacerFecha(2024, 1, 31, 10, 30, 5));
}

TEST(Fecha, SumarLlegaALosExtremosDelCalendario) {
  const int anios = 9999 - 100;
  EXPECT_EQ(SumarFecha("yyyy", anios, kPrimera), HacerFecha(9999, 1, 1));
  EXPECT_EQ(SumarFecha("m", anios * 12 + 11, kPrimera), HacerFecha(9999, 12, 1));
  EXPECT_EQ(SumarFecha("d", kUltima.Dias - kPrimera.Dias, kPrimera), HacerFecha(9999, 12, 31));
  EXPECT_EQ(SumarFecha("d", kPrimera.Dias - kUltima.Dias, kUltima),
            HacerFecha(100, 1, 1, 23, 59, 59));
}

TEST(Fecha, SumarFueraDelCalendarioEsUnaLlamadaNoValida) {
  constexpr auto kEnorme = std::numeric_limits<std::int64_t>::max();
  constexpr auto kMinimo = std::numeric_limits<std::int64_t>::min();
  for (const char* unidad : {"d", "m", "yyyy"}) {
    EXPECT_EQ(ErrorAlSumar(unidad, -1, kPrimera), 5) << unidad;
    EXPECT_EQ(ErrorAlSumar(unidad, 1, kUltima), 5) << unidad;
    EXPECT_EQ(ErrorAlSumar(unidad, kEnorme, kPrimera), 5) << unidad;
    EXPECT_EQ(ErrorAlSumar(unidad, kMinimo, kUltima), 5) << unidad;
  }
  EXPECT_EQ(ErrorAlSumar("yyyy", -3000, HacerFecha(2000, 1, 1)), 5);
}

TEST(Fecha, OtraUnidadEsErrorDeTipos) {
  for (const char* unidad : {"", "y", "q", "ww", "h", "dd"}) {
    EXPECT_EQ(ErrorAlSumar(unidad, 1, kPrimera), 13) << unidad;
  }
}

TEST(Fecha, LeeLasFechasDelUsuario) {
  const std::vector<std::pair<std::string, FechaHora>> casos = {
      {"15/03/2005", HacerFecha(2005, 3, 15)},
      {"1/3/2005", HacerFecha(2005, 3, 1)},
      {"01-03-05", HacerFecha(2005, 3, 1)},
      {"1.3.05", HacerFecha(2005, 3, 1)},
      {"  15/03/2005 ", HacerFecha(2005, 3, 15)},
      {"29/02/2000", HacerFecha(2000, 2, 29)},
      {"28/02/1900", HacerFecha(1900, 2, 28)},
      {"01/01/00", HacerFecha(2000, 1, 1)},
      {"01/01/29", HacerFecha(2029, 1, 1)},
      {"01/01/30", HacerFecha(1930, 1, 1)},
      {"01/01/99", HacerFecha(1999, 1, 1)},
      {"01/01/0100", kPrimera},
      {"31/12/9999 23:59:59", kUltima},
      {"15/03/2005 9:05", HacerFecha(2005, 3, 15, 9, 5)},
      {"15/03/2005 09:05:07", HacerFecha(2005, 3, 15, 9, 5, 7)},
      {"15/03/2005 0:00:00", HacerFecha(2005, 3, 15)},
      {"0:00:00", FechaHora{}},
      {"23:59", FechaHora{0, 86340}},
      {" 7:08:09 ", FechaHora{0, 25689}}};
  for (const auto& [texto, esperada] : casos) EXPECT_EQ(LeerFecha(texto), esperada) << texto;
}

TEST(Fecha, NoLeeLoQueNoEsFecha) {
  for (const char* texto : {"",
                            " ",
                            "hoy",
                            "30/02/2005",
                            "29/02/1900",
                            "29/02/2023",
                            "31/04/2005",
                            "32/01/2005",
                            "00/01/2005",
                            "01/00/2005",
                            "01/13/2005",
                            "1/1/5",
                            "1/1/205",
                            "1/1/20055",
                            "1/1/0099",
                            "001/1/2005",
                            "1/001/2005",
                            "1/1",
                            "1/1/",
                            "/1/2005",
                            "1//2005",
                            "1/1/2005x",
                            "1/1/2005 x",
                            "01012005",
                            "1/1/2005 5",
                            "1/1/2005 24:00",
                            "1/1/2005 5:60",
                            "1/1/2005 5:6",
                            "1/1/2005 5:06:60",
                            "5:06:7",
                            "5:06:07:08",
                            "5:",
                            ":05",
                            "-1:00",
                            "5:06 1/1/2005",
                            "1/1/2005T5:06",
                            "+1/1/2005",
                            "1 / 1 / 2005",
                            "1,1,2005",
                            "99999999999/1/2005"}) {
    EXPECT_EQ(LeerFecha(texto), std::nullopt) << texto;
  }
}

TEST(Fecha, FechaQueNoLoEsEsErrorDeTipos) {
  EXPECT_EQ(Fecha("15/03/2005"), HacerFecha(2005, 3, 15));
  EXPECT_EQ(apoyo::NumeroDeError([] { return Fecha("30/02/2005"); }), 13);
}

TEST(Fecha, TextoPorDefecto) {
  EXPECT_EQ(TextoDeFecha(HacerFecha(2005, 3, 5)), "05/03/2005");
  EXPECT_EQ(TextoDeFecha(HacerFecha(2005, 3, 5, 9, 5, 7)), "05/03/2005 9:05:07");
  EXPECT_EQ(TextoDeFecha(HacerFecha(2005, 3, 5, 0, 0, 1)), "05/03/2005 0:00:01");
  EXPECT_EQ(TextoDeFecha(FechaHora{}), "0:00:00");
  EXPECT_EQ(TextoDeFecha(FechaHora{0, 45000}), "12:30:00");
  EXPECT_EQ(TextoDeFecha(kPrimera), "01/01/0100");
  EXPECT_EQ(TextoDeFecha(kUltima), "31/12/9999 23:59:59");
}

TEST(Fecha, LoEscritoSeVuelveALeer) {
  constexpr std::int32_t kSegundosDia = 86400;
  std::int32_t segundos = 0;
  for (std::int32_t dias = kPrimera.Dias; dias <= kUltima.Dias; dias += 7) {
    segundos = (segundos + 7919) % kSegundosDia;
    for (const FechaHora momento : {FechaHora{dias, segundos}, FechaHora{dias, 0}}) {
      ASSERT_EQ(LeerFecha(TextoDeFecha(momento)), momento) << TextoDeFecha(momento);
    }
  }
  for (std::int32_t s = 0; s < kSegundosDia; ++s) {
    for (const FechaHora momento : {FechaHora{0, s}, FechaHora{1, s}}) {
      ASSERT_EQ(LeerFecha(TextoDeFecha(momento)), momento) << TextoDeFecha(momento);
    }
  }
}

TEST(Fecha, FechaLargaEnEspanol) {
  EXPECT_EQ(FechaLarga(HacerFecha(2005, 3, 15)), "martes, 15 de marzo de 2005");
  EXPECT_EQ(FechaLarga(HacerFecha(2024, 2, 29)), "jueves, 29 de febrero de 2024");
  EXPECT_EQ(FechaLarga(HacerFecha(2023, 9, 6, 12)), "miércoles, 6 de septiembre de 2023");
  EXPECT_EQ(FechaLarga(HacerFecha(1899, 12, 30)), "sábado, 30 de diciembre de 1899");
  EXPECT_EQ(FechaLarga(HacerFecha(1850, 6, 2)), "domingo, 2 de junio de 1850");
}

TEST(Fecha, PartesDeUnTexto) {
  EXPECT_EQ(services::Year("15/03/05"), 2005);
  EXPECT_EQ(services::Month("15/03/05"), 3);
  EXPECT_EQ(services::Day("15/03/05 10:00"), 15);
  EXPECT_THROW((void)services::Year(""), ErrorEjecucion);
  EXPECT_THROW((void)services::Month("13"), ErrorEjecucion);
  EXPECT_THROW((void)services::Day("31/06/2005"), ErrorEjecucion);
}

}  // namespace
