#pragma once

#include <string>
#include <vector>

#include "services/destino_informe.h"

namespace apoyo {

/// Letters that all are half a centimetre wide, in lines of a centimetre.
class MediosCentimetros : public services::MedidasDeLetra {
 public:
  double Ancho(const services::Letra&, std::string_view texto) const override {
    return 0.5 * static_cast<double>(texto.size());
  }
  double Alto(const services::Letra&) const override { return 1; }
};

/// A sheet of such letters.
class HojaDePrueba final : private MediosCentimetros, public services::HojaInforme {
 public:
  HojaDePrueba() : HojaInforme(static_cast<const MediosCentimetros&>(*this)) {}

  [[nodiscard]] const std::vector<services::Trazo>& Trazos() const {
    return static_cast<const services::LaminaInforme&>(*Image()).Trazos;
  }
};

}  // namespace apoyo
