#include "forms/escritorio.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "forms/widget.h"

namespace services {

void Escritorio::Evento(const std::function<void()>& accion) {
  if (profundidad_ > 0) return Correr(accion);
  Informar([&] { Correr(accion); });
}

void Escritorio::Informar(const std::function<void()>& accion) {
  try {
    accion();
  } catch (...) {
    plataforma_.ErrorNoControlado(ErrorEnCurso());
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
    if (--profundidad_ == 0) FinTrasError(std::current_exception());
    throw;
  }
  if (--profundidad_ == 0) FinDeEvento(AlTerminarEvento);
}

/// What fails a second time by the same cause has nothing to add to it.
void Escritorio::FinTrasError(const std::exception_ptr& yaDicho) {
  Informar([&] {
    try {
      FinDeEvento(AlFallarEvento);
    } catch (...) {
      const std::string otra = ErrorEnCurso().Descripcion();
      try {
        std::rethrow_exception(yaDicho);
      } catch (...) {
        if (ErrorEnCurso().Descripcion() == otra) return;
      }
      throw;
    }
  });
}

void Escritorio::FinDeEvento(const std::function<void()>& cierre) {
  // The windows repaint and the unloaded screens go, whatever comes of the end of the unit.
  struct Final {
    Escritorio& yo;
    ~Final() { yo.Rematar(); }
  } final{*this};
  if (cierre) cierre();
}

void Escritorio::Rematar() {
  AcabarEnPantallas();
  SoltarRetirados();
}

void Escritorio::AcabarEnPantallas() {
  for (Form* form : cargados_) {
    form->AlAcabarEvento();
    if (form->Vista()) form->Vista()->FinDeEvento();
  }
}

/// A handler of a screen that was unloaded may still be on the stack of a wait.
void Escritorio::SoltarRetirados() {
  if (esperas_ == 0) std::exchange(retirados_, {});
}

/// The event stands still while the user is waited for: what the user does meanwhile begins from
/// nothing.
class Escritorio::Pausa {
 public:
  explicit Pausa(Escritorio& yo)
      : yo_(yo),
        profundidad_(std::exchange(yo.profundidad_, 0)),
        dejando_(std::exchange(yo.dejando_, false)),
        ocupaciones_(std::exchange(yo.ocupaciones_, 0)) {
    ++yo_.esperas_;
    if (ocupaciones_ > 0) yo_.Decir(false);
  }
  ~Pausa() {
    --yo_.esperas_;
    yo_.ocupaciones_ = ocupaciones_;
    if (ocupaciones_ > 0) yo_.Decir(true);
    yo_.profundidad_ = profundidad_;
    yo_.dejando_ = dejando_;
    if (profundidad_ == 0) yo_.SoltarRetirados();
  }
  Pausa(const Pausa&) = delete;
  Pausa& operator=(const Pausa&) = delete;

 private:
  Escritorio& yo_;
  int profundidad_;
  bool dejando_;
  int ocupaciones_;
};

void Escritorio::Esperar(const std::function<void()>& espera, bool pregunta) {
  if (AlTerminarEvento) AlTerminarEvento();
  const Pausa pausa(*this);
  AcabarEnPantallas();
  for (Form* form : cargados_) {
    if (pregunta && form->Vista()) form->Vista()->AntesDePreguntar();
  }
  espera();
}

Escritorio::Modal::Modal(Form& form) : escritorio_(form.Escritorio()) {
  escritorio_.apartados_.push_back({&form, std::exchange(escritorio_.foco_, nullptr),
                                    std::exchange(escritorio_.perdido_, nullptr)});
  if (escritorio_.apartados_.back().foco) escritorio_.MostrarFoco();
}

Escritorio::Modal::~Modal() {
  const Apartado antes = escritorio_.apartados_.back();
  escritorio_.apartados_.pop_back();
  if (escritorio_.foco_) return;
  escritorio_.perdido_ = antes.foco ? antes.foco : antes.perdido;
  if (antes.foco) escritorio_.RecuperarFoco(*antes.foco);
}

bool Escritorio::EsModal(const Form& form) const {
  return std::any_of(apartados_.begin(), apartados_.end(),
                     [&](const Apartado& apartado) { return apartado.modal == &form; });
}

bool Escritorio::AlAlcance(const Form& form) const {
  if (!form.Visible()) return false;
  // One that was hidden from inside another one's wait is in nobody's way.
  const auto delante =
      std::find_if(apartados_.rbegin(), apartados_.rend(),
                   [](const Apartado& apartado) { return apartado.modal->Visible(); });
  return delante == apartados_.rend() || delante->modal == &form;
}

bool Escritorio::DarFoco(Widget& widget) {
  if (!widget.AdmiteFoco() || !widget.Alcanzable()) return false;
  if (dejando_) {
    salidas_.back().destino = &widget;
    return false;
  }
  if (foco_ == &widget) return true;
  Asentar(foco_ ? Dejar(widget) : &widget);
  return foco_ == &widget;
}

/// The handler of the widget that was left may have unloaded, hidden or disabled where the focus
/// was going.
void Escritorio::Asentar(Widget* llegada) {
  const bool llega = llegada && llegada->Alcanzable();
  foco_ = llega ? llegada : nullptr;
  perdido_ = llega ? nullptr : llegada;
  MostrarFoco();
  if (foco_) Widget::Disparar(foco_->GotFocus);
}

Widget* Escritorio::Dejar(Widget& destino) {
  // A widget whose handler waits for the user, as in a modal screen, is not left a second time.
  const bool yaSale = EstaSaliendo(*foco_);
  salidas_.push_back({foco_, &destino});
  dejando_ = true;
  const auto acabar = [this] {
    dejando_ = false;
    const Salida salida = salidas_.back();
    salidas_.pop_back();
    return salida;
  };
  try {
    if (!yaSale) Widget::Disparar(foco_->LostFocus);
  } catch (...) {
    // An error doesn't hold the user back: the focus goes on, or no click would ever get past it.
    Asentar(acabar().destino);
    throw;
  }
  return acabar().destino;
}

bool Escritorio::EstaSaliendo(const Widget& widget) const {
  return std::any_of(salidas_.begin(), salidas_.end(),
                     [&](const Salida& salida) { return salida.viejo == &widget; });
}

void Escritorio::MostrarFoco() {
  for (Form* form : cargados_) {
    if (!form->Vista()) continue;
    form->Vista()->Foco(foco_ && &foco_->Formulario() == form ? foco_ : nullptr);
  }
}

void Escritorio::QuitarFoco() {
  Widget* viejo = foco_;
  if (!viejo || EstaSaliendo(*viejo)) return;
  foco_ = nullptr;
  perdido_ = viejo;
  if (Ventana* vista = viejo->Formulario().Vista()) vista->Foco(nullptr);
  Widget::Disparar(viejo->LostFocus);
}

void Escritorio::OlvidarFoco(const Widget& widget) {
  if (foco_ == &widget) foco_ = nullptr;
  if (perdido_ == &widget) perdido_ = nullptr;
  for (Apartado& apartado : apartados_) {
    if (apartado.foco == &widget) apartado.foco = nullptr;
    if (apartado.perdido == &widget) apartado.perdido = nullptr;
  }
  for (Salida& salida : salidas_) {
    if (salida.viejo == &widget) salida.viejo = nullptr;
    if (salida.destino == &widget) salida.destino = nullptr;
  }
}

void Escritorio::RecuperarFoco(Widget& widget) {
  if (foco_ || !widget.Alcanzable()) return;
  foco_ = &widget;
  perdido_ = nullptr;
  MostrarFoco();
}

void Escritorio::Registrar(Form& form) {
  cargados_.push_back(&form);
}

void Escritorio::Retirar(Form& form) {
  std::erase(cargados_, &form);
  retirados_.emplace_back(&form);
}

}  // namespace services
