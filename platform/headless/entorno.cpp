#include "headless/entorno.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "headless/selector_conceptos.h"
#include "headless/ventana_headless.h"
#include "services/utiles.h"

namespace headless {

namespace {

class AvisoHeadless final : public services::Aviso {
 public:
  explicit AvisoHeadless(std::shared_ptr<Entorno> entorno) : entorno_(std::move(entorno)) {}
  int Mostrar(const std::string& texto, int flags, const std::string& titulo) override {
    return entorno_->Mensajes.Mostrar(texto, flags, titulo);
  }

 private:
  std::shared_ptr<Entorno> entorno_;
};

class AvanceHeadless final : public services::Avance {
 public:
  explicit AvanceHeadless(std::shared_ptr<Entorno> entorno) : entorno_(std::move(entorno)) {}
  bool Toca() override { return static_cast<bool>(entorno_->AlAvanzar); }
  bool Seguir(int hechos, int total) override { return entorno_->AlAvanzar(hechos, total); }

 private:
  std::shared_ptr<Entorno> entorno_;
};

}  // namespace

std::shared_ptr<Entorno> Entorno::Crear() {
  return std::shared_ptr<Entorno>(new Entorno);
}

services::Plataforma Entorno::Plataforma() {
  const std::shared_ptr<Entorno> yo = shared_from_this();
  services::Plataforma p;
  p.CrearVentana = [yo](services::Form& form) {
    yo->escritorio_ = &form.Escritorio();
    return std::make_unique<VentanaHeadless>(yo, form);
  };
  p.CrearAviso = [yo] { return std::make_unique<AvisoHeadless>(yo); };
  p.CrearUtiles = [yo](services::Sesion& sesion) { return yo->CrearUtiles(sesion); };
  p.CrearSelectorConceptos = [yo](services::Sesion&) {
    return std::make_unique<SelectorHeadless>(yo);
  };
  p.ErrorNoControlado = [yo](const services::ErrorEjecucion& fallo) {
    if (yo->AlFallar) yo->AlFallar(fallo);
  };
  p.PasadoPorAlto = [yo](services::Sesion&, const services::Omision& omision) {
    yo->Omisiones.push_back(omision);
    if (yo->AlPasarPorAlto) yo->AlPasarPorAlto(omision);
  };
  p.Ahora = [yo] { return yo->Ahora(); };
  p.Pantalla = [yo] { return yo->Pantalla; };
  p.Printers = [yo] { return yo->Printers; };
  p.AbrirImpresora = [yo](const services::TrabajoDeImpresion& trabajo) {
    if (yo->Printers.empty()) {
      throw services::ErrorEjecucion(services::error::ErrorDeImpresora,
                                     "No hay ninguna impresora instalada");
    }
    yo->UltimoTrabajo = trabajo;
    yo->informe_ = std::make_shared<Grabacion>();
    return std::make_unique<ImpresoraGrabada>(yo->informe_);
  };
  p.CrearHoja = [yo](int pagina) {
    if (pagina == 1) yo->informe_ = std::make_shared<Grabacion>();
    return std::make_unique<HojaGrabada>(yo->informe_, pagina);
  };
  p.CrearAvance = [yo](const std::string&) { return std::make_unique<AvanceHeadless>(yo); };
  p.Registrar = [yo](const services::ClaseRegistrada& clase) {
    yo->registradas_.push_back(clase);
    return services::hr::Bien;
  };
  p.Anular = [yo](const services::ClaseRegistrada& clase) {
    std::erase_if(yo->registradas_, [&](const auto& una) { return una.Clsid == clase.Clsid; });
    return services::hr::Bien;
  };
  return p;
}

services::FechaHora Entorno::Ahora() const {
  if (parado_) return *parado_;
  const std::time_t segundos = std::time(nullptr);
  std::tm local{};
  localtime_r(&segundos, &local);
  return services::HacerFecha(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                              local.tm_min, std::min(local.tm_sec, 59));
}

std::vector<services::Form*> Entorno::Pantallas() const {
  return escritorio_ ? escritorio_->Cargados() : std::vector<services::Form*>{};
}

services::Form* Entorno::Buscar(std::string_view nombre) const {
  for (services::Form* form : Pantallas()) {
    if (form->Nombre() == nombre) return form;
  }
  return nullptr;
}

services::Widget* Entorno::Foco() const {
  return escritorio_ ? escritorio_->Foco() : nullptr;
}

bool Entorno::AlAlcance(const services::Form& form) const {
  return form.Escritorio().AlAlcance(form);
}

void Entorno::EsperarModal(services::Form& form) {
  // The screen may be unloaded by what is waited for, and its maker may let go of it then.
  const services::Ref<services::Form> viva(&form);
  if (AlEsperarModal) AlEsperarModal(form);
  form.Hide();
}

}  // namespace headless
