#include "qt/letra_de_informe.h"

#include <QFontMetricsF>
#include <array>
#include <cmath>
#include <map>

#include "qt/textos_qt.h"
#include "valores/texto.h"

namespace qt {
namespace {

/// Pixels of the font that is measured: in whole units of most faces, so that nothing is rounded.
constexpr int kCuadratin = 1000;

/// The light weight of this face is the common one, and the next but one its bold. Asked for by
/// name, the toolkit makes up no bold of its own. A size is whole pixels.
QFont HacerFuente(int pixeles, bool negrita) {
  QFont fuente(QString::fromLatin1(kLetraDeInforme));
  fuente.setStyleHint(QFont::Serif);
  fuente.setPixelSize(pixeles);
  fuente.setWeight(negrita ? QFont::DemiBold : QFont::Light);
  fuente.setHintingPreference(QFont::PreferNoHinting);
  fuente.setKerning(false);
  return fuente;
}

/// A font is looked up in the system once. They are left to the end of the process: the toolkit's
/// own data is gone by then.
const QFont& FuenteGuardada(int pixeles, bool negrita) {
  static auto& fuentes = *new std::map<std::pair<int, bool>, QFont>;
  const std::pair clave{pixeles, negrita};
  const auto donde = fuentes.find(clave);
  if (donde != fuentes.end()) return donde->second;
  return fuentes.emplace(clave, HacerFuente(pixeles, negrita)).first->second;
}

/// What is asked of a weight for every text of a report, in thousandths of the size of its letters.
struct MedidasDePeso {
  double Alto = 0;
  double Ascenso = 0;
  /// The letters up to the first sign that goes over another; negative until they are asked for.
  std::array<double, 0x300> Anchos{};
};

MedidasDePeso MedirPeso(bool negrita) {
  const QFontMetricsF metrica(FuenteGuardada(kCuadratin, negrita));
  MedidasDePeso medidas{.Alto = metrica.height(), .Ascenso = metrica.ascent()};
  medidas.Anchos.fill(-1);
  return medidas;
}

MedidasDePeso& MedidasDe(const services::Letra& letra) {
  static MedidasDePeso normal = MedirPeso(false);
  static MedidasDePeso negrita = MedirPeso(true);
  return letra.Negrita ? negrita : normal;
}

double MedirTexto(const services::Letra& letra, const QString& texto) {
  return QFontMetricsF(FuenteGuardada(kCuadratin, letra.Negrita)).horizontalAdvance(texto);
}

/// A text is as wide as its letters one by one, which are measured once: each
/// measure takes the toolkit as long as drawing a line.
double Milesimas(const services::Letra& letra, std::string_view texto) {
  auto& anchos = MedidasDe(letra).Anchos;
  double suma = 0;
  for (const char32_t signo : services::Signos(texto)) {
    if (signo >= anchos.size()) return MedirTexto(letra, Texto(texto));
    double& ancho = anchos[signo];
    if (ancho < 0) ancho = MedirTexto(letra, QChar(static_cast<char16_t>(signo)));
    suma += ancho;
  }
  return suma;
}

double Centimetros(const services::Letra& letra, double unidades) {
  return unidades / kCuadratin * letra.Puntos * kTwipsPorPunto / kTwipsPorCentimetro;
}

}  // namespace

QFont FuenteDeInforme(const services::Letra& letra) {
  const auto twips = static_cast<int>(std::lround(letra.Puntos * kTwipsPorPunto));
  return FuenteGuardada(std::max(twips, 1), letra.Negrita);
}

double MedidasQt::Ancho(const services::Letra& letra, std::string_view texto) const {
  return Centimetros(letra, Milesimas(letra, texto));
}

double MedidasQt::Alto(const services::Letra& letra) const {
  return Centimetros(letra, MedidasDe(letra).Alto);
}

double MedidasQt::Ascenso(const services::Letra& letra) const {
  return Centimetros(letra, MedidasDe(letra).Ascenso);
}

const MedidasQt& MedidasDeInforme() {
  static const MedidasQt medidas;
  return medidas;
}

}  // namespace qt
