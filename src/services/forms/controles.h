#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/lamina.h"
#include "forms/widget.h"

// The widgets of the screens, one class a kind. What an assignment fires is told at each property;
// an assignment of the value already held fires nothing.

namespace services {

/// A panel: a container of other widgets, on which pictures can be painted.
class PictureBox : public Widget {
 public:
  PictureBox(Sitio sitio, std::string nombre, const Diseno& diseno = {});

  /// A picture and its place on the panel, in twips.
  struct Pintada {
    std::shared_ptr<const Lamina> Imagen;
    int X = 0;
    int Y = 0;
    int Ancho = 0;
    int Alto = 0;
  };
  /// Paints a picture over what is there, stretched to that size.
  void PaintPicture(std::shared_ptr<const Lamina> imagen, int x, int y, int ancho, int alto);
  /// Takes everything painted away.
  void Cls();
  /// What is painted, in its order.
  [[nodiscard]] const std::vector<Pintada>& Pintadas() const { return pintadas_; }

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }

 private:
  std::vector<Pintada> pintadas_;
};

/// A line of text that the user edits.
class TextBox : public Widget {
 public:
  TextBox(Sitio sitio, std::string nombre, const Diseno& diseno = {});

  /// Fires `Change`.
  Propiedad<std::string> Text{*this, Aspecto::Text};
  /// The user can't change its text; code can.
  Propiedad<bool> Locked{*this, Aspecto::Tecleo};
  /// The most characters that the user can make of it, 0 for any number. Code isn't held to it.
  Propiedad<int> MaxLength{*this, Aspecto::Tecleo};
  /// The selected stretch, in characters from 0.
  Propiedad<int> SelStart{*this, Aspecto::Seleccion};
  Propiedad<int> SelLength{*this, Aspecto::Seleccion};
  Evento Change;

  void SeleccionarTodo();
  [[nodiscard]] bool AdmiteFoco() const override { return true; }
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
  void Cambiada(Aspecto aspecto) override;

  /// The least height, in twips, that shows a line of that many points.
  [[nodiscard]] static int AltoDeLinea(double puntos);

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }
};

/// A widget with a caption: what the user reads on it or beside it.
class ConCaption : public Widget {
 public:
  Propiedad<std::string> Caption;
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;

 protected:
  ConCaption(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
};

/// A text that the user reads.
class Label : public ConCaption {
 public:
  Label(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
  /// Only one that is designed for the keyboard. A click by mouse leaves the focus where it is all
  /// the same.
  [[nodiscard]] bool AdmiteFoco() const override { return conTeclado_; }
  [[nodiscard]] bool TomaFocoAlPulsar() const override { return false; }

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }

 private:
  const bool conTeclado_;
};

class CheckBox : public ConCaption {
 public:
  CheckBox(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
  /// Ticked or not. Fires `Click`.
  Propiedad<bool> Value{*this, Aspecto::Value};
  [[nodiscard]] bool AdmiteFoco() const override { return true; }
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
  void Cambiada(Aspecto aspecto) override;

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }
};

/// One of a group of which at most one is on: the options of the same panel, or of the form itself.
class OptionButton : public ConCaption {
 public:
  OptionButton(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
  /// To True, the others of its group go False silently, and then `Click` fires. To False it fires
  /// nothing.
  Propiedad<bool> Value{*this, Aspecto::Value};
  /// Those of its group that can be reached, itself among them, in the order of the Tab key.
  [[nodiscard]] std::vector<OptionButton*> Grupo() const;
  [[nodiscard]] bool AdmiteFoco() const override { return true; }
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
  void Cambiada(Aspecto aspecto) override;

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }

 private:
  void ApagarLasDemas();
};

/// A closed list of items of which one may be chosen.
class ComboBox : public Widget {
 public:
  ComboBox(Sitio sitio, std::string nombre, std::vector<std::string> elementos,
           const Diseno& diseno = {});

  /// The chosen item from 0, -1 for none. Fires `Click`; `Text` follows. Throws 0x800A0BB9 for an
  /// item that isn't there.
  Propiedad<int> ListIndex{*this, Aspecto::ListIndex, -1};
  /// The chosen item's text, empty for none. Assigning chooses the item of that text; a text that
  /// none has throws 0x800A0BB9.
  Propiedad<std::string> Text{*this, Aspecto::Text};
  [[nodiscard]] const std::vector<std::string>& Elementos() const { return elementos_; }
  void AddItem(std::string texto);
  void Clear();

  [[nodiscard]] bool AdmiteFoco() const override { return true; }
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
  void Cambiada(Aspecto aspecto) override;

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }

 private:
  std::vector<std::string> elementos_;
};

/// The push button of the suite.
class Pulsador : public ConCaption {
 public:
  Pulsador(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
  /// Whether a click takes the focus to it. `BtnCancelar` doesn't, so that the field being left
  /// raises no complaint.
  bool TomaFoco = true;
  /// Whether Escape, which no handler of the widget with the focus has consumed, clicks it.
  bool Cancela = false;
  [[nodiscard]] bool AdmiteFoco() const override { return TomaFoco; }
};

/// What a mouse does on a title bar. The position is that inside the bar, in twips.
struct Raton {
  static constexpr int Izquierdo = 1;
  static constexpr int Derecho = 2;

  int Boton = 0;
  int Mayusculas = 0;  ///< 1 Shift, 2 Ctrl, 4 Alt, added up
  double X = 0;
  double Y = 0;
};

/// The title bar of the suite's screens.
class Cintilla : public ConCaption {
 public:
  using EventoRaton = std::function<void(const Raton& raton)>;

  Cintilla(Sitio sitio, std::string nombre, std::string caption, const Diseno& diseno = {});
  Evento Cerrar;
  EventoRaton Pulsada;
  EventoRaton Movida;
  EventoRaton Soltada;
};

/// The title bar of a screen, null where it has none.
[[nodiscard]] Cintilla* BarraDe(const Form& form);

class Image : public Widget {
 public:
  Image(Sitio sitio, std::string nombre, std::string imagen, const Diseno& diseno = {});
  /// Name of the drawing; empty for none.
  Propiedad<std::string> Picture;
  Propiedad<bool> Stretch{*this, Aspecto::Stretch};
};

class Shape : public Widget {
 public:
  Shape(Sitio sitio, std::string nombre, const Diseno& diseno = {});

 protected:
  [[nodiscard]] bool TieneFondo() const override { return true; }
};

/// A drawn line; it has its two ends, in twips, in the place of a position and a size.
class Line : public Widget {
 public:
  Line(Sitio sitio, std::string nombre, int x1, int y1, int x2, int y2);
  Propiedad<int> X1;
  Propiedad<int> Y1;
  Propiedad<int> X2;
  Propiedad<int> Y2;
};

class VScrollBar : public Widget {
 public:
  VScrollBar(Sitio sitio, std::string nombre, const Diseno& diseno = {});
  Propiedad<int> Min{*this, Aspecto::Min, 0};
  Propiedad<int> Max{*this, Aspecto::Max, 32767};
  /// Kept between `Min` and `Max`. Fires `Change`.
  Propiedad<int> Value{*this, Aspecto::Value, 0};
  Evento Change;
  [[nodiscard]] bool AdmiteFoco() const override { return true; }
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
  void Cambiada(Aspecto aspecto) override;

 private:
  int mostrado_ = 0;  // the value that `Change` last told of
};

class ProgressBar : public Widget {
 public:
  ProgressBar(Sitio sitio, std::string nombre, const Diseno& diseno = {});
  Propiedad<double> Min{*this, Aspecto::Min, 0};
  Propiedad<double> Max{*this, Aspecto::Max, 100};
  Propiedad<double> Value{*this, Aspecto::Value, 0};
  [[nodiscard]] std::optional<Valor> Leer(Aspecto aspecto) const override;
};

}  // namespace services
