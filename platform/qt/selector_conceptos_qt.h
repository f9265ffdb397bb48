#pragma once

#include "services/sesion.h"
#include "services/utiles.h"

namespace qt {

/// The concept search as a window over the calling form.
class SelectorConceptosQt final : public services::SelectorConceptos {
 public:
  explicit SelectorConceptosQt(services::Sesion& sesion) : sesion_(sesion) {}

  void Buscar(services::Ref<services::IDatosClase>& datos, services::Ref<services::Form>& form,
              std::string_view origen, std::string_view clase, const std::string& texto,
              std::string_view modo, bool indicador) override;

 private:
  services::Sesion& sesion_;
};

}  // namespace qt
