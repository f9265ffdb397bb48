#pragma once

#include "qt/letra_de_informe.h"
#include "services/destino_informe.h"

namespace qt {

/// A target of sheets that leave one by one, each when it is done: the current one can be taken
/// back, and no report takes more memory than another.
class PapelQt : public services::DestinoInforme {
 protected:
  PapelQt() : DestinoInforme(MedidasDeInforme()) {}

  /// Throws 482 when the sheet, or what went before it, got lost.
  virtual void Entregar(const services::LaminaInforme& hoja) = 0;

  void Trazar(services::Trazo trazo) final { hoja_.Trazos.push_back(std::move(trazo)); }
  void PasarHoja() final {
    Entregar(hoja_);
    hoja_.Trazos.clear();
  }
  void BorrarHoja() final { hoja_.Trazos.clear(); }

 private:
  services::LaminaInforme hoja_;
};

}  // namespace qt
