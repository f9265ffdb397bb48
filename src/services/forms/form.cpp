#include "forms/form.h"

#include <algorithm>
#include <utility>

namespace services {

Form::Form(services::Escritorio& escritorio, std::string nombre, int ancho, int alto)
    : Width(*this, Aspecto::Geometria, ancho),
      Height(*this, Aspecto::Geometria, alto),
      escritorio_(escritorio),
      nombre_(std::move(nombre)) {}

Form::~Form() {
  std::erase(escritorio_.cargados_, this);
}

void Form::Load() {
  if (cargado_) return;
  if (descargado_) {
    throw ErrorEjecucion(error::ObjetoDescargado, "La pantalla " + nombre_ + " se ha descargado");
  }
  cargado_ = true;
  escritorio_.Registrar(*this);
  try {
    Form_Load();
  } catch (...) {
    if (cargado_) Retirar();
    throw;
  }
}

void Form::Show() {
  Abrir(false);
}

void Form::Abrir(bool modal) {
  Load();
  if (!cargado_) return;
  if (!vista_) vista_ = escritorio_.Plataforma().CrearVentana(*this);
  visible_ = true;
  vista_->Mostrar(modal);
  Form_Activate();
  if (enfocado_) escritorio_.RecuperarFoco(*std::exchange(enfocado_, nullptr));
}

void Form::ShowModal() {
  // The last count may go with the unload that ends the wait.
  const Ref<Form> viva(this);
  if (escritorio_.EsModal(*this)) return Abrir(true);
  const Escritorio::Modal modal(*this);
  Abrir(true);
  if (!visible_) return;
  escritorio_.Esperar([this] { vista_->EsperarModal(); });
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  if (Widget* foco = escritorio_.Foco(); foco && &foco->Formulario() == this) enfocado_ = foco;
  OlvidarFoco();
  vista_->Ocultar();
}

void Form::Unload() {
  // A second unload from inside the first, as from a message that it shows, is part of the first.
  if (!cargado_ || descargando_) return;
  const Ref<Form> viva(this);
  descargando_ = true;
  try {
    Form_Unload();
  } catch (...) {
    descargando_ = false;
    throw;
  }
  Retirar();
}

void Form::Retirar() {
  Hide();
  OlvidarFoco();
  cargado_ = false;
  descargado_ = true;
  escritorio_.Retirar(*this);
  // Nobody asks a screen that is gone for them, and each would look for itself among all of them.
  widgets_.clear();
  if (AlRetirarse) AlRetirarse();
}

void Form::OlvidarFoco() {
  if (Widget* foco = escritorio_.Foco(); foco && &foco->Formulario() == this) {
    escritorio_.OlvidarFoco(*foco);
  }
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

void Form::Mostrar(Aspecto) {
  if (vista_) vista_->Refrescar();
}

}  // namespace services
