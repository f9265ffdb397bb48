#include "services/form.h"

#include <algorithm>
#include <utility>

#include "services/plataforma.h"

namespace services {

Form::Form(services::Escritorio& escritorio, std::string nombre, int ancho, int alto)
    : Width(*this, Aspecto::Geometria, ancho),
      Height(*this, Aspecto::Geometria, alto),
      escritorio_(escritorio),
      nombre_(std::move(nombre)) {}

Form::~Form() = default;

void Form::Load() {
  if (cargado_) return;
  cargado_ = true;
  escritorio_.Registrar(*this);
  try {
    Form_Load();
  } catch (...) {
    cargado_ = false;
    escritorio_.Retirar(*this);
    throw;
  }
}

void Form::Show() {
  Load();
  if (!vista_) vista_ = escritorio_.Plataforma().CrearVentana(*this);
  visible_ = true;
  vista_->Mostrar();
}

void Form::ShowModal() {
  Show();
  escritorio_.Esperar([this] { vista_->EsperarModal(); });
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  if (Widget* foco = escritorio_.Foco(); foco && &foco->Formulario() == this) {
    escritorio_.OlvidarFoco(*foco);
  }
  vista_->Ocultar();
}

void Form::Unload() {
  if (!cargado_) return;
  // Its own unload may let go of the shared instance.
  const Ref<Form> vivo(this);
  const auto retirar = [this] {
    Hide();
    cargado_ = false;
    escritorio_.Retirar(*this);
  };
  try {
    Form_Unload();
  } catch (...) {
    retirar();
    throw;
  }
  retirar();
}

Widget* Form::Buscar(std::string_view nombre) const {
  const auto donde = std::find_if(widgets_.begin(), widgets_.end(),
                                  [&](const Widget* w) { return w->NombreCompleto() == nombre; });
  return donde == widgets_.end() ? nullptr : *donde;
}

std::vector<Widget*> Form::OrdenDeTabulacion() const {
  std::vector<Widget*> orden;
  std::copy_if(widgets_.begin(), widgets_.end(), std::back_inserter(orden), [](const Widget* w) {
    return w->AdmiteFoco() && w->TabIndex >= 0 && w->TabStop && w->Alcanzable();
  });
  std::stable_sort(orden.begin(), orden.end(),
                   [](const Widget* a, const Widget* b) { return a->TabIndex() < b->TabIndex(); });
  return orden;
}

void Form::Refresh() noexcept {
  if (vista_) vista_->Refrescar();
}

void Form::Cambiada(Aspecto) {
  if (vista_) vista_->Refrescar();
}

}  // namespace services
