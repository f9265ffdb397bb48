#include "qt/textos_qt.h"

#include <algorithm>

namespace qt {

int Unidades(const QString& texto, int caracteres) {
  int unidad = 0;
  const int largo = static_cast<int>(texto.size());
  for (; caracteres > 0 && unidad < largo; --caracteres) {
    unidad += texto.at(unidad).isHighSurrogate() ? 2 : 1;
  }
  return std::min(unidad, largo);
}

int Caracteres(const QString& texto, int unidades) {
  return static_cast<int>(
      std::count_if(texto.begin(), texto.begin() + std::clamp<qsizetype>(unidades, 0, texto.size()),
                    [](QChar c) { return !c.isLowSurrogate(); }));
}

QString Rotulo(std::string_view caption) {
  return Texto(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace qt
