#include "shell/imprenta_de_sesion.h"

#include <utility>

namespace shell {
namespace {

/// What runs while the user is told are events of their own.
class AvanceConEspera final : public services::Avance {
 public:
  AvanceConEspera(std::unique_ptr<services::Avance> avance, services::Escritorio& escritorio)
      : avance_(std::move(avance)), escritorio_(escritorio) {}

  bool Toca() override { return avance_->Toca(); }
  bool Seguir(int hechos, int total) override {
    bool sigue = true;
    escritorio_.Esperar([&] { sigue = avance_->Seguir(hechos, total); });
    return sigue;
  }

 private:
  std::unique_ptr<services::Avance> avance_;
  services::Escritorio& escritorio_;
};

}  // namespace

/// The user may be asked for a file, or told that the report goes to another printer.
std::unique_ptr<services::DestinoInforme> ImprentaDeSesion::AbrirImpresora(
    const services::TrabajoDeImpresion& trabajo) {
  std::unique_ptr<services::DestinoInforme> destino;
  escritorio_.Esperar([&] { destino = plataforma_.AbrirImpresora(trabajo); });
  return destino;
}

std::unique_ptr<services::Avance> ImprentaDeSesion::CrearAvance(const std::string& titulo) {
  auto avance = plataforma_.CrearAvance ? plataforma_.CrearAvance(titulo) : nullptr;
  if (!avance) return nullptr;
  return std::make_unique<AvanceConEspera>(std::move(avance), escritorio_);
}

}  // namespace shell
