#include "list/prevision.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sorvex/utiles_sorvex.h"

namespace {

using list::Recurrencia;
using Fechas = std::vector<std::string>;

constexpr int kDias = 1;
constexpr int kMeses = 2;
constexpr int kAnios = 3;

Fechas Recorrer(const Recurrencia& prevision, const std::string& desde, const std::string& hasta) {
  sorvex::Utiles utiles([] { return std::string(); }, [] { return services::FechaHora{}; });
  Fechas fechas;
  list::RecorrerPrevision(prevision, {desde, hasta}, utiles, [&](const std::string& fecha) {
    fechas.push_back(fecha);
    return true;
  });
  return fechas;
}

TEST(Prevision, LaQueEmpiezaAntesPierdeSuPrimeraFechaEnElRango) {
  EXPECT_EQ(Recorrer({"20050101", 1, kMeses}, "20050301", "20050601"),
            (Fechas{"20050401", "20050501"}));
}

TEST(Prevision, LaQueEmpiezaDentroMuestraSuPrimeraFecha) {
  EXPECT_EQ(Recorrer({"20050101", 1, kMeses}, "20041201", "20050301"),
            (Fechas{"20050101", "20050201"}));
}

TEST(Prevision, LaQueEmpiezaDespuesDelRangoMuestraSoloSuPrimeraFecha) {
  EXPECT_EQ(Recorrer({"20060101", 1, kMeses}, "20050301", "20050331"), (Fechas{"20060101"}));
}

TEST(Prevision, UnaFechaEnElFinalDelRangoNoSale) {
  EXPECT_EQ(Recorrer({"20050301", 10, kDias}, "20050301", "20050331"),
            (Fechas{"20050301", "20050311", "20050321"}));
  EXPECT_EQ(Recorrer({"20050301", 10, kDias}, "20050301", "20050401"),
            (Fechas{"20050301", "20050311", "20050321", "20050331"}));
}

TEST(Prevision, LaPrimeraFechaEnElPrincipioDelRangoSale) {
  EXPECT_EQ(Recorrer({"20050301", 1, kAnios}, "20050301", "20070301"),
            (Fechas{"20050301", "20060301"}));
}

TEST(Prevision, ElDiaQueCortaUnMesNoVuelve) {
  EXPECT_EQ(Recorrer({"20050131", 1, kMeses}, "20050101", "20050601"),
            (Fechas{"20050131", "20050228", "20050328", "20050428", "20050528"}));
}

TEST(Prevision, CualquierOtroTipoSonAnios) {
  EXPECT_EQ(list::UnidadDe(0), "yyyy");
  EXPECT_EQ(list::UnidadDe(9), "yyyy");
  EXPECT_EQ(Recorrer({"20040229", 1, 7}, "20040101", "20060301"),
            (Fechas{"20040229", "20050228", "20060228"}));
}

TEST(Prevision, SinPasoMuestraComoMuchoLaPrimeraFecha) {
  EXPECT_EQ(Recorrer({"20050315", 0, kDias}, "20050301", "20050331"), (Fechas{"20050315"}));
  EXPECT_EQ(Recorrer({"20050215", 0, kDias}, "20050301", "20050331"), Fechas{});
  EXPECT_EQ(Recorrer({"20050315", -1, kMeses}, "20050301", "20050331"), (Fechas{"20050315"}));
}

TEST(Prevision, QuienVisitaPuedePararla) {
  sorvex::Utiles utiles([] { return std::string(); }, [] { return services::FechaHora{}; });
  int visitas = 0;
  list::RecorrerPrevision({"20050301", 1, kDias}, {"20050301", "20050331"}, utiles,
                          [&](const std::string&) { return ++visitas < 3; });
  EXPECT_EQ(visitas, 3);
}

TEST(Prevision, DesdeUnaFechaQueNoLoEsNoSeAvanza) {
  EXPECT_EQ(Recorrer({"2005", 1, kDias}, "20050301", "20050331"), Fechas{});
  EXPECT_EQ(Recorrer({"sin fecha", 1, kDias}, "20050301", "20050331"), (Fechas{"sin fecha"}));
  EXPECT_EQ(Recorrer({"", 1, kMeses}, "20050301", "20050331"), Fechas{});
}

TEST(Prevision, AcabaConElCalendario) {
  EXPECT_EQ(Recorrer({"99990101", 6, kMeses}, "99990101", "99991231"),
            (Fechas{"99990101", "99990701"}));
  EXPECT_EQ(Recorrer({"20050101", 9000, kAnios}, "20050301", "20050331"), Fechas{});
}

}  // namespace
