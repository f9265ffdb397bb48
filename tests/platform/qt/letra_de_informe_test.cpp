#include "qt/letra_de_informe.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <fstream>
#include <sstream>
#include <string>

#include "qt/textos_qt.h"

// The face of the reports against the table of its measures that everybody else lays out by.

namespace {

constexpr double kPuntos = 10;
constexpr double kMilesima = kPuntos / 1000 * 2.54 / 72;  // cm

const services::Letra kNormal{"Bookman Old Style", kPuntos, false};
const services::Letra kNegrita{"Bookman Old Style", kPuntos, true};

TEST(LetraDeInforme, MideLoQueDiceLaTabla) {
  std::ifstream tabla(TESVARA_TESTS "/vectores/medidas_de_letra.tsv");
  const qt::MedidasQt medidas;
  int signos = 0;
  for (std::string linea; std::getline(tabla, linea);) {
    if (linea.empty() || linea.front() == '#') continue;
    std::istringstream campos(linea);
    unsigned signo = 0;
    double normal = 0;
    double negrita = 0;
    ASSERT_TRUE(campos >> std::hex >> signo >> std::dec >> normal >> negrita) << linea;
    // A place to break a word, which the toolkit doesn't draw.
    if (signo == 0xAD) continue;
    const std::string texto = qt::Utf8(QString(QChar(signo)));
    EXPECT_NEAR(medidas.Ancho(kNormal, texto) / kMilesima, normal, 1) << linea;
    EXPECT_NEAR(medidas.Ancho(kNegrita, texto) / kMilesima, negrita, 1) << linea;
    ++signos;
  }
  EXPECT_EQ(signos, 197);
  EXPECT_NEAR(medidas.Alto(kNormal) / kMilesima, 1324, 1);
  EXPECT_NEAR(medidas.Alto(kNegrita) / kMilesima, 1399, 1);
}

TEST(LetraDeInforme, UnTextoMideLoQueSusLetrasUnaAUna) {
  const qt::MedidasQt medidas;
  const double oficina = 800 + 320 + 300 + 520 + 300 + 660 + 580;
  EXPECT_NEAR(medidas.Ancho(kNormal, "Oficina") / kMilesima, oficina, 1);
  EXPECT_NEAR(medidas.Ancho(kNormal, "AV") / kMilesima, 680 + 700, 1);
  EXPECT_DOUBLE_EQ(medidas.Ancho(kNormal, ""), 0);
  EXPECT_GT(medidas.Ancho(kNormal, "Ω≈"), medidas.Ancho(kNormal, "Ω"));
}

TEST(LetraDeInforme, MideElDobleAlDobleDeTamano) {
  const qt::MedidasQt medidas;
  services::Letra doble = kNegrita;
  doble.Puntos *= 2;
  EXPECT_NEAR(medidas.Ancho(doble, "Núñez"), 2 * medidas.Ancho(kNegrita, "Núñez"), 1e-9);
  EXPECT_NEAR(medidas.Alto(doble), 2 * medidas.Alto(kNegrita), 1e-9);
  EXPECT_LT(medidas.Ascenso(doble), medidas.Alto(doble));
}

TEST(LetraDeInforme, EsLaQueSeInstalaYSuNegritaNoEsInventada) {
  for (const services::Letra& letra : {kNormal, kNegrita}) {
    const QFont fuente = qt::FuenteDeInforme(letra);
    EXPECT_EQ(fuente.pixelSize(), 200);
    const QFontInfo puesta(fuente);
    EXPECT_TRUE(puesta.family().startsWith(qt::kLetraDeInforme)) << qPrintable(puesta.family());
    EXPECT_EQ(puesta.styleName(), letra.Negrita ? "Demi" : "Light");
  }
}

}  // namespace
