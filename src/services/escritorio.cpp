#include "services/escritorio.h"

#include <algorithm>
#include <utility>

#include "services/form.h"
#include "services/plataforma.h"
#include "services/widget.h"

namespace services {

void Escritorio::Evento(const std::function<void()>& accion) {
  try {
    Correr(accion);
  } catch (const ErrorEjecucion& fallo) {
    if (profundidad_ > 0) throw;
    plataforma_.ErrorNoControlado(fallo);
  }
}

void Escritorio::Operacion(const std::function<void()>& accion) {
  Correr(accion);
}

void Escritorio::Correr(const std::function<void()>& accion) {
  ++profundidad_;
  try {
    accion();
  } catch (...) {
    if (--profundidad_ == 0) FinTrasError();
    throw;
  }
  if (--profundidad_ == 0) FinDeEvento();
}

void Escritorio::FinTrasError() {
  try {
    FinDeEvento();
  } catch (const ErrorEjecucion& fallo) {
    plataforma_.ErrorNoControlado(fallo);
  }
}

void Escritorio::FinDeEvento() {
  // The windows repaint and the unloaded screens go, whatever comes of the end of the unit.
  struct Final {
    Escritorio& yo;
    ~Final() { yo.Rematar(); }
  } final{*this};
  if (AlTerminarEvento) AlTerminarEvento();
}

void Escritorio::Rematar() {
  for (Form* form : cargados_) {
    if (form->Vista()) form->Vista()->FinDeEvento();
  }
  std::exchange(retirados_, {});
}

void Escritorio::Esperar(const std::function<void()>& espera) {
  if (AlTerminarEvento) AlTerminarEvento();
  const int antes = std::exchange(profundidad_, 0);
  const bool dejaba = std::exchange(dejando_, false);
  for (Form* form : cargados_) {
    if (form->Vista()) form->Vista()->FinDeEvento();
  }
  // Screens unloaded before the wait may still have a handler on the stack.
  std::vector<Ref<Form>> guardados = std::exchange(retirados_, {});
  const auto volver = [&] {
    profundidad_ = antes;
    dejando_ = dejaba;
    std::move(guardados.begin(), guardados.end(), std::back_inserter(retirados_));
  };
  try {
    espera();
  } catch (...) {
    volver();
    throw;
  }
  volver();
}

bool Escritorio::DarFoco(Widget& widget) {
  if (!widget.AdmiteFoco() || !widget.Alcanzable()) return false;
  if (dejando_) {
    destino_ = &widget;
    return false;
  }
  if (foco_ == &widget) return true;
  destino_ = &widget;
  if (foco_) {
    dejando_ = true;
    try {
      Widget::Disparar(foco_->LostFocus);
    } catch (...) {
      dejando_ = false;
      destino_ = nullptr;
      throw;
    }
    dejando_ = false;
  }
  // The handler may have unloaded, hidden or disabled where the focus was going.
  Widget* destino = std::exchange(destino_, nullptr);
  foco_ = destino && destino->Alcanzable() ? destino : nullptr;
  Widget* llegada = foco_;
  for (Form* form : cargados_) {
    if (!form->Vista()) continue;
    form->Vista()->Foco(llegada && &llegada->Formulario() == form ? llegada : nullptr);
  }
  if (llegada) Widget::Disparar(llegada->GotFocus);
  return foco_ == &widget;
}

void Escritorio::QuitarFoco() {
  Widget* viejo = foco_;
  if (!viejo || dejando_) return;
  foco_ = nullptr;
  if (Ventana* vista = viejo->Formulario().Vista()) vista->Foco(nullptr);
  Widget::Disparar(viejo->LostFocus);
}

void Escritorio::OlvidarFoco(const Widget& widget) {
  if (foco_ == &widget) foco_ = nullptr;
  if (destino_ == &widget) destino_ = nullptr;
}

void Escritorio::Registrar(Form& form) {
  cargados_.push_back(&form);
}

void Escritorio::Retirar(Form& form) {
  std::erase(cargados_, &form);
  retirados_.emplace_back(&form);
}

}  // namespace services
