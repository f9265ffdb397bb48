#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "forms/propiedad.h"
#include "valores/valor.h"

namespace services {

class Form;
class PictureBox;

/// Colours are platform integers with blue in the high byte; a negative one is a colour of the
/// desktop.
namespace color {
inline constexpr int Blanco = 0xFFFFFF;
inline constexpr int Negro = 0;
/// The field with the focus, and a disabled field.
inline constexpr int ConFoco = 10865355;
inline constexpr int Inhabilitado = 13887721;
/// The desktop's colours for panels and their text.
inline constexpr int Panel = static_cast<int>(0x8000000F);
inline constexpr int TextoPanel = static_cast<int>(0x80000012);
}  // namespace color

/// Where a widget stands as designed, in twips, and how: `Diseno{180, 160, 1300, 360}.Tab(0)`.
struct Diseno {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  /// Place in the order of the Tab key; -1 keeps it out.
  int TabIndex = -1;
  bool Visible = true;
  bool Enabled = true;
  /// Of a label: the keyboard gets to it, and the blank clicks it there.
  bool Teclado = false;
  double FontSize = 8.25;  ///< points
  bool FontBold = false;

  [[nodiscard]] constexpr Diseno Tab(int lugar) const { return Con(&Diseno::TabIndex, lugar); }
  [[nodiscard]] constexpr Diseno ConTeclado() const { return Con(&Diseno::Teclado, true); }
  [[nodiscard]] constexpr Diseno Cuerpo(double puntos) const {
    return Con(&Diseno::FontSize, puntos);
  }
  [[nodiscard]] constexpr Diseno Negrita() const { return Con(&Diseno::FontBold, true); }
  [[nodiscard]] constexpr Diseno Oculto() const { return Con(&Diseno::Visible, false); }
  [[nodiscard]] constexpr Diseno Inhabilitado() const { return Con(&Diseno::Enabled, false); }

 private:
  template <class T>
  [[nodiscard]] constexpr Diseno Con(T Diseno::*miembro, T valor) const {
    Diseno otro = *this;
    otro.*miembro = valor;
    return otro;
  }
};

/// What a widget is laid on: a screen, or a panel of one.
struct Sitio {
  Sitio(services::Form& form) : Form(form) {}
  Sitio(PictureBox& panel);

  services::Form& Form;
  PictureBox* Panel = nullptr;  ///< null on the screen itself
};

/// What all widgets of a screen have: a name, a place, state, and one slot for each event. A model
/// without a window; whoever shows it reads it and is told of changes.
///
/// An event's slot runs in the caller's stack: its error comes out of the assignment that fired it.
class Widget : public Dueno {
 public:
  using Evento = std::function<void()>;
  /// The handler may change the key, or consume it by setting it to 0.
  using EventoTecla = std::function<void(int& tecla)>;

  Widget(Sitio sitio, std::string nombre, const Diseno& diseno);
  virtual ~Widget();
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  [[nodiscard]] const std::string& Nombre() const { return nombre_; }
  /// Place in its control array, from 0; -1 for a widget that is in none.
  [[nodiscard]] int Indice() const { return indice_; }
  /// `W`, or `W(2)` in a control array.
  [[nodiscard]] std::string NombreCompleto() const;
  [[nodiscard]] services::Form& Formulario() const { return form_; }
  [[nodiscard]] PictureBox* Contenedor() const { return contenedor_; }

  Propiedad<std::string> Tag{*this, Aspecto::Tag};
  Propiedad<bool> Enabled;
  Propiedad<bool> Visible;
  Propiedad<int> BackColor{*this, Aspecto::BackColor, color::Panel};
  Propiedad<int> ForeColor{*this, Aspecto::ForeColor, color::TextoPanel};
  Propiedad<int> Left;  ///< twips, like the next three
  Propiedad<int> Top;
  Propiedad<int> Width;
  Propiedad<int> Height;
  Propiedad<double> FontSize;  ///< points
  Propiedad<bool> FontBold;
  Propiedad<int> TabIndex;
  Propiedad<bool> TabStop{*this, Aspecto::Enabled, true};

  Evento Click;
  Evento DblClick;
  Evento GotFocus;
  Evento LostFocus;
  Evento MouseDown;
  Evento MouseUp;
  EventoTecla KeyDown;
  EventoTecla KeyPress;

  /// Gives it the focus; nothing when it is hidden, disabled or has it already. The order of the
  /// events is told in `Escritorio::DarFoco`.
  void SetFocus();
  [[nodiscard]] bool TieneFoco() const;
  /// Whether its kind takes the focus at all.
  [[nodiscard]] virtual bool AdmiteFoco() const { return false; }
  /// Whether a click takes the focus to it.
  [[nodiscard]] virtual bool TomaFocoAlPulsar() const { return AdmiteFoco(); }
  /// Shown and in use, and so are the panels it lies in and its form.
  [[nodiscard]] bool Alcanzable() const;

  /// The value of a property, none where its kind hasn't it.
  [[nodiscard]] virtual std::optional<Valor> Leer(Aspecto aspecto) const;

  void Cambiada(Aspecto aspecto) override;
  void Mostrar(Aspecto aspecto) override;

  static void Disparar(const Evento& evento) {
    if (evento) evento();
  }

 protected:
  /// Whether the kind shows a back colour of its own.
  [[nodiscard]] virtual bool TieneFondo() const { return false; }

 private:
  template <class>
  friend class MatrizControles;

  Form& form_;
  std::string nombre_;
  int indice_ = -1;
  PictureBox* contenedor_;
};

}  // namespace services
