#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/plataforma_forms.h"
#include "valores/objeto.h"

namespace services {

class Form;
class Widget;

/// The runtime that all screens of the component share: which are loaded, where the focus is, and
/// where one event of the user ends and the next begins.
class Escritorio {
 public:
  explicit Escritorio(const PlataformaDeForms& plataforma) : plataforma_(plataforma) {}
  Escritorio(const Escritorio&) = delete;
  Escritorio& operator=(const Escritorio&) = delete;

  [[nodiscard]] const PlataformaDeForms& Plataforma() const { return plataforma_; }

  /// What runs when an event of the user is over, and before the user is waited for. It may throw:
  /// the error goes the way of the event's own.
  std::function<void()> AlTerminarEvento;
  /// What runs instead when the event ends in an error that no handler caught: what it has done
  /// since its last wait is not to stay. It may throw, and that is told too.
  std::function<void()> AlFallarEvento;

  /// Runs the handlers of one thing that the user did. An error that leaves them goes to
  /// `PlataformaDeForms::ErrorNoControlado`, an exception of another kind as error 51; none comes
  /// out. Inside another event it runs as part of it.
  void Evento(const std::function<void()>& accion);
  /// The same for an operation that the host asks for: the error comes out.
  void Operacion(const std::function<void()>& accion);
  /// Waits for the user, in a message or a modal screen, from inside an event. What the user does
  /// meanwhile are events of their own. Before a question, what it is about comes to sight.
  void Esperar(const std::function<void()>& espera, bool pregunta = false);

  /// Work that may take long: the user is told for as long as it lives, but while asked something.
  class Ocupacion {
   public:
    explicit Ocupacion(Escritorio& escritorio) : escritorio_(escritorio) {
      if (escritorio_.ocupaciones_++ == 0) escritorio_.Decir(true);
    }
    ~Ocupacion() {
      if (--escritorio_.ocupaciones_ == 0) escritorio_.Decir(false);
    }
    Ocupacion(const Ocupacion&) = delete;
    Ocupacion& operator=(const Ocupacion&) = delete;

   private:
    Escritorio& escritorio_;
  };

  /// A modal screen, for as long as it lives: the user works in it alone. The focus of the screen
  /// behind is put aside, with no event, so that the new one begins without any. It goes back at
  /// the end, unless another widget has taken it.
  class Modal {
   public:
    explicit Modal(Form& form);
    ~Modal();
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

   private:
    Escritorio& escritorio_;
  };

  /// Whether the user can work in a screen: shown, and not behind a modal one.
  [[nodiscard]] bool AlAlcance(const Form& form) const;

  /// Whether the user is waited for in a screen.
  [[nodiscard]] bool EsModal(const Form& form) const;

  /// The widget with the focus, null for none.
  [[nodiscard]] Widget* Foco() const { return foco_; }
  /// While no widget has the focus, the last one it was taken from, or could not arrive at, because
  /// that one was hidden or disabled; null for none.
  [[nodiscard]] Widget* FocoPerdido() const { return perdido_; }
  /// Moves the focus: `LostFocus` of the old widget, then `GotFocus` of the new. Nothing when the
  /// new one can't be reached or has it already. When the `LostFocus` handler gives the focus to
  /// another, that one takes the place of `widget`, which gets no event; when it gives it back to
  /// the old one, that one gets `GotFocus` again. An error of that handler comes out once the
  /// focus has gone on. Whether the focus is on `widget` at the end.
  bool DarFoco(Widget& widget);
  /// Takes the focus from a widget that was hidden or disabled: its `LostFocus`, and no widget has
  /// it.
  void QuitarFoco();
  /// The same with no event, for one that is going away.
  void OlvidarFoco(const Widget& widget);

  /// Puts the focus back, with no event, on a widget of a screen that comes to sight again.
  void RecuperarFoco(Widget& widget);

  /// Loaded screens in the order of their loading.
  [[nodiscard]] const std::vector<Form*>& Cargados() const { return cargados_; }

 private:
  friend class Form;
  void Registrar(Form& form);
  void Retirar(Form& form);

  /// A widget whose LostFocus handler runs, and where the focus goes after it; null where the
  /// widget is gone.
  struct Salida {
    Widget* viejo;
    Widget* destino;
  };

  void Decir(bool ocupado) const {
    if (plataforma_.Ocupado) plataforma_.Ocupado(ocupado);
  }
  class Pausa;
  void Rematar();
  void SoltarRetirados();
  void FinDeEvento(const std::function<void()>& cierre);
  void AcabarEnPantallas();
  void FinTrasError(const std::exception_ptr& yaDicho);
  void Informar(const std::function<void()>& accion);
  void Correr(const std::function<void()>& accion);
  [[nodiscard]] Widget* Dejar(Widget& destino);
  [[nodiscard]] bool EstaSaliendo(const Widget& widget) const;
  void Asentar(Widget* llegada);
  void MostrarFoco();

  const PlataformaDeForms& plataforma_;
  std::vector<Form*> cargados_;
  int profundidad_ = 0;
  int esperas_ = 0;
  int ocupaciones_ = 0;
  Widget* foco_ = nullptr;
  Widget* perdido_ = nullptr;
  bool dejando_ = false;  // inside the LostFocus handler of the last of salidas_
  std::vector<Salida> salidas_;
  /// A modal screen, and the focus that was put aside for it.
  struct Apartado {
    const Form* modal;
    Widget* foco;
    Widget* perdido;
  };
  std::vector<Apartado> apartados_;
  // Unloaded in this event; let go at its end. The last member, since their widgets, as they go,
  // take themselves out of the others.
  std::vector<Ref<Form>> retirados_;
};

}  // namespace services
