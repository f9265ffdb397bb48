#pragma once

#include <QAccessible>
#include <QLabel>
#include <functional>

namespace qt {

/// A text that a click turns on: it draws the focus, and screen readers know it as the box that it
/// stands for.
class PulsableQt : public QLabel {
 public:
  explicit PulsableQt(QWidget* padre) : QLabel(padre) {}

  /// What a click does, and going there by key, for who asks by other means: also where it is out
  /// of sight, and hidden.
  std::function<void()> Pulsar;
  std::function<void()> Enfocar;

  [[nodiscard]] virtual bool Marcada() const = 0;
  [[nodiscard]] virtual QString Nombre() const = 0;
  [[nodiscard]] virtual QAccessible::Role Papel() const = 0;

 protected:
  /// What was last told of it is what there is now.
  void Recordar() { anunciada_ = Marcada(); }
  /// Shows its mark and tells of it, if it is another one.
  void AnunciarMarca();
  /// The focus, where it has it, around so much of it.
  void PintarFoco(QPainter& pintor, const QRectF& lugar) const;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;

 private:
  bool anunciada_ = false;
};

}  // namespace qt
