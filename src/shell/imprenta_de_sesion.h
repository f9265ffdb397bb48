#pragma once

#include "forms/escritorio.h"
#include "forms/form.h"
#include "services/imprenta.h"
#include "services/plataforma.h"

namespace shell {

/// Printing, as the platform in place has it.
class ImprentaDeSesion final : public services::Imprenta {
 public:
  ImprentaDeSesion(const services::Plataforma& plataforma, services::Escritorio& escritorio)
      : plataforma_(plataforma), escritorio_(escritorio) {}

  std::vector<std::string> Printers() override { return plataforma_.Printers(); }
  std::unique_ptr<services::DestinoInforme> AbrirImpresora(
      const services::TrabajoDeImpresion& trabajo) override;
  std::unique_ptr<services::HojaInforme> CrearHoja(int pagina) override {
    return plataforma_.CrearHoja(pagina);
  }
  std::unique_ptr<services::Avance> CrearAvance(const std::string& titulo) override;

 private:
  const services::Plataforma& plataforma_;
  services::Escritorio& escritorio_;
};

}  // namespace shell
