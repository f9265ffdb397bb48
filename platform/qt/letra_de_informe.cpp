#include "qt/letra_de_informe.h"

#include <QFontMetricsF>
#include <cmath>
#include <map>

#include "qt/textos_qt.h"

namespace qt {
namespace {

/// Pixels of the font that is measured: in whole units of most faces, so that nothing is rounded.
constexpr int kCuadratin = 1000;

/// The light weight of this face is the common one, and the next but one its bold. Asked for by
/// name, the toolkit makes up no bold of its own. A size is whole pixels.
QFont Hacer(int pixeles, bool negrita) {
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
const QFont& Fuente(int pixeles, bool negrita) {
  static auto& fuentes = *new std::map<std::pair<int, bool>, QFont>;
  const std::pair clave{pixeles, negrita};
  const auto donde = fuentes.find(clave);
  if (donde != fuentes.end()) return donde->second;
  return fuentes.emplace(clave, Hacer(pixeles, negrita)).first->second;
}

QFontMetricsF Metrica(const services::Letra& letra) {
  return QFontMetricsF(Fuente(kCuadratin, letra.Negrita));
}

double Centimetros(const services::Letra& letra, double unidades) {
  return unidades / kCuadratin * letra.Puntos * kTwipsPorPunto / kTwipsPorCentimetro;
}

}  // namespace

QFont FuenteDeInforme(const services::Letra& letra) {
  const auto twips = static_cast<int>(std::lround(letra.Puntos * kTwipsPorPunto));
  return Fuente(std::max(twips, 1), letra.Negrita);
}

double MedidasQt::Ancho(const services::Letra& letra, std::string_view texto) const {
  return Centimetros(letra, Metrica(letra).horizontalAdvance(Texto(texto)));
}

double MedidasQt::Alto(const services::Letra& letra) const {
  return Centimetros(letra, Metrica(letra).height());
}

double MedidasQt::Ascenso(const services::Letra& letra) const {
  return Centimetros(letra, Metrica(letra).ascent());
}

const MedidasQt& MedidasDeInforme() {
  static const MedidasQt medidas;
  return medidas;
}

}  // namespace qt
