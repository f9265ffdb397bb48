#pragma once

#include <QObject>
#include <QWidget>

#include "forms/widget.h"

class QKeyEvent;

namespace qt {

class Lienzo;

/// What joins a widget of the model to the one on the screen: shows the model's properties, and
/// tells it what the user does. It belongs to the widget on the screen, and so outlives an event
/// that takes the model away: after every such event the model may be gone (`Suelto`).
class Vinculo : public QObject {
 public:
  Vinculo(services::Widget& modelo, QWidget& vista, Lienzo& lienzo);

  virtual void Soltar() { modelo_ = nullptr; }
  [[nodiscard]] bool Suelto() const { return modelo_ == nullptr; }
  [[nodiscard]] QWidget& Vista() const { return vista_; }

  void MostrarTodo();
  void Mostrar(services::Aspecto aspecto);
  /// The model of a widget that is marked `medidaReal` in the design takes its height and its place
  /// from above as they are on the screen.
  void Medir();
  /// Whether it does anything at the end of an event, or before a question.
  [[nodiscard]] virtual bool Espera() const { return false; }
  virtual void FinDeEvento() {}
  /// Brings what the user is about to be asked about to sight.
  virtual void TraerALaVista() {}

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  /// Shows a property that only this kind has.
  virtual void MostrarPropio(services::Aspecto aspecto) = 0;
  /// Background and text on the screen, out of those of the model.
  virtual void MostrarColores();
  /// A key pressed in it; whether it was taken.
  virtual bool PulsarTecla(QKeyEvent& evento);
  /// Shows the value of the model again after the toolkit changed it by itself.
  void Pulsar();
  void PintarCon(QPalette::ColorRole fondo, QPalette::ColorRole texto);

  [[nodiscard]] services::Widget& Modelo() const { return *modelo_; }
  [[nodiscard]] Lienzo& Pantalla() const { return lienzo_; }
  [[nodiscard]] bool Atento() const;

 private:
  void MostrarAlcance();
  void MostrarLugar();
  void RecibirFoco();

  services::Widget* modelo_;
  QWidget& vista_;
  Lienzo& lienzo_;
};

/// The same with both kinds known.
template <class M, class V>
class VinculoDe : public Vinculo {
 public:
  VinculoDe(M& modelo, V& vista, Lienzo& lienzo) : Vinculo(modelo, vista, lienzo) {}

 protected:
  [[nodiscard]] M& Modelo() const { return static_cast<M&>(Vinculo::Modelo()); }
  [[nodiscard]] V& Vista() const { return static_cast<V&>(Vinculo::Vista()); }
};

}  // namespace qt
