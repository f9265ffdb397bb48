#include "qt/historial.h"

namespace qt {

void Historial::Empezar(const QString& texto) {
  textos_ = {texto};
  actual_ = 0;
}

void Historial::Anotar(const QString& texto) {
  if (textos_.at(actual_) == texto) return;
  textos_.erase(textos_.begin() + actual_ + 1, textos_.end());
  textos_.append(texto);
  ++actual_;
}

}  // namespace qt
