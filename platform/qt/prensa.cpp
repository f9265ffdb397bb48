#include "qt/prensa.h"

#include <QPagedPaintDevice>
#include <utility>

#include "qt/pintor_de_informe.h"

namespace qt {

bool Prensa::Empezar(QPagedPaintDevice& papel, const QTransform& encaje) {
  papel_ = &papel;
  primera_ = true;
  if (!pintor_.begin(papel_)) return false;
  pintor_.setTransform(encaje);
  return true;
}

bool Prensa::Pintar(const services::LaminaInforme& hoja) {
  if (!std::exchange(primera_, false) && !papel_->newPage()) return false;
  qt::Pintar(pintor_, hoja);
  return true;
}

}  // namespace qt
