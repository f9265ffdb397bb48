#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/escritorio.h"
#include "forms/iform.h"
#include "forms/propiedad.h"
#include "forms/ventana.h"
#include "forms/widget.h"
#include "valores/objeto.h"

namespace services {

class Precaucion;

/// Shapes of the mouse pointer.
namespace puntero {
inline constexpr int Normal = 0;
inline constexpr int Mover = 15;
}  // namespace puntero

/// A screen: the widgets that name it as their form, and its start and end. Loaded by its first
/// `Show` or by `Load`, gone at `Unload`; a screen unloaded is not loaded again, another one is
/// made in its place (`Instancia`).
class Form : public ObjetoContado<IForm>, public Dueno {
 public:
  Form(services::Escritorio& escritorio, std::string nombre, int ancho, int alto);
  ~Form() override;

  [[nodiscard]] const std::string& Nombre() const { return nombre_; }
  [[nodiscard]] services::Escritorio& Escritorio() const { return escritorio_; }

  Propiedad<int> Left{*this, Aspecto::Geometria};
  Propiedad<int> Top{*this, Aspecto::Geometria};
  Propiedad<int> Width;
  Propiedad<int> Height;
  /// The pointer's shape over it: one of `puntero`.
  Propiedad<int> MousePointer{*this, Aspecto::Picture, puntero::Normal};

  /// Runs `Form_Load`, once. An error in it comes out, and the form then counts as unloaded. Throws
  /// 364 for a form that was unloaded before.
  void Load();
  /// Loads it if need be and brings it to sight, unless its load has unloaded it.
  void Show();
  /// The same, and returns when it has been hidden or unloaded. The focus goes back then to where
  /// it was, with no event. One that is waited for already only comes to sight.
  void ShowModal();
  /// Hidden, it keeps its focus for the next `Show`; neither fires an event.
  void Hide();
  /// Runs `Form_Unload` and takes the screen away; the object lives on until the user's event is
  /// over. When that fails the error comes out, and the screen stays as it is.
  void Unload();
  [[nodiscard]] bool Cargado() const { return cargado_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  /// Whether it was unloaded, or failed to load: another one has to take its place.
  [[nodiscard]] bool Descargado() const { return descargado_; }

  [[nodiscard]] const std::vector<Widget*>& Widgets() const { return widgets_; }
  /// By name, or `W(2)` for an element of a control array; case counts. Null when there is none.
  [[nodiscard]] Widget* Buscar(std::string_view nombre) const;
  /// Those that the Tab key visits, in their order.
  [[nodiscard]] std::vector<Widget*> OrdenDeTabulacion() const;

  /// The host's form whose area this screen fills; null for a window of its own.
  Ref<IForm> Marco;
  [[nodiscard]] Ventana* Vista() const { return vista_.get(); }

  /// What a window asks the user before some of what he does; null for a screen without.
  [[nodiscard]] virtual services::Precaucion* Precaucion() { return nullptr; }

  /// The screen is gone, and whoever keeps it can let go.
  std::function<void()> AlRetirarse;

  /// It has been shown.
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_Paint() {}
  /// The user's event is over, or waits for him.
  virtual void AlAcabarEvento() {}
  /// The user wants to see it larger by so many steps, or smaller where that is negative.
  virtual void Form_Zoom(int /*pasos*/) {}

  Rectangulo Geometria() noexcept override { return {Left, Top, Width, Height}; }
  std::int32_t WindowState() noexcept override { return 0; }
  void PonerWindowState(std::int32_t) noexcept override {}
  void Refresh() noexcept override;
  void* VentanaNativa() noexcept override { return vista_ ? vista_->Nativa() : nullptr; }

  void Cambiada(Aspecto aspecto) override { Mostrar(aspecto); }
  void Mostrar(Aspecto aspecto) override;

 protected:
  virtual void Form_Load() {}
  virtual void Form_Unload() {}

 private:
  friend class Widget;

  void Abrir(bool modal);
  void OlvidarFoco();
  void Retirar();

  services::Escritorio& escritorio_;
  std::string nombre_;
  std::vector<Widget*> widgets_;
  std::unique_ptr<Ventana> vista_;
  Widget* enfocado_ = nullptr;  // had the focus when the screen was hidden
  bool cargado_ = false;
  bool visible_ = false;
  bool descargando_ = false;
  bool descargado_ = false;
};

/// The one shared instance of a screen: made at its first use, let go when it is unloaded, and made
/// anew after that.
template <class F>
class Instancia {
 public:
  Instancia() = default;
  Instancia(const Instancia&) = delete;
  ~Instancia() {
    if (form_) form_->AlRetirarse = nullptr;
  }

  template <class... Argumentos>
  F& Pedir(Argumentos&&... argumentos) {
    if (!form_) {
      form_ = Crear<F>(std::forward<Argumentos>(argumentos)...);
      form_->AlRetirarse = [this] { form_ = nullptr; };
    }
    return *form_;
  }
  /// Null when it isn't made yet, or was unloaded.
  [[nodiscard]] F* Si() const { return form_.get(); }

 private:
  Ref<F> form_;
};

}  // namespace services
