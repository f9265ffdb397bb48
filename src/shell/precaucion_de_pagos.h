#pragma once

#include "forms/precaucion.h"

namespace shell {

class DatosComunes;
class FrmTesvaraGastos;

/// Payments typed in the list are in its cells alone until "Grabar", and go with what makes the
/// list anew: another order, a filter, a deletion, an accepted entry, the automatic invoices. The
/// last two are asked about where they begin, since nothing can be saved once they are on the
/// screen.
class PrecaucionDePagos final : public services::Precaucion {
 public:
  PrecaucionDePagos(FrmTesvaraGastos& pantalla, DatosComunes& datos)
      : pantalla_(pantalla), datos_(datos) {}

  [[nodiscard]] std::string PreguntaAntesDe(const services::Widget& widget,
                                            services::Gesto gesto) const override;
  [[nodiscard]] bool PreguntaAlDejar() const override;
  /// Saves, and takes the user back to the line that a gesture is about. One that is gone from the
  /// list is told, and the gesture goes no further.
  [[nodiscard]] bool Prevenir(const services::Widget& widget, services::Gesto gesto) override;

 private:
  [[nodiscard]] bool LosPierde(const services::Widget& widget, services::Gesto gesto) const;
  [[nodiscard]] bool EsDeLaLinea(const services::Widget& widget, services::Gesto gesto) const;
  [[nodiscard]] bool Grabar();
  void DecirQueNoEsta();

  FrmTesvaraGastos& pantalla_;
  DatosComunes& datos_;
};

}  // namespace shell
