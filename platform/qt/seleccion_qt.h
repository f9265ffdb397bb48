#pragma once

#include <QLabel>
#include <QPointer>
#include <functional>

namespace qt {

/// A text, mostly an empty one, that lies over others and by a click turns a mark on and off: it
/// draws the box that the mark is in, and the focus. Screen readers know it as that box.
class SeleccionQt final : public QLabel {
 public:
  explicit SeleccionQt(QWidget* padre = nullptr) : QLabel(padre) {}

  /// `marca` is there while it is on; `rotulos` are the texts that tell what is marked.
  void Unir(QWidget* marca, const QList<QLabel*>& rotulos);

  /// What a click does, and going there by key, for who asks by other means: also where it is out
  /// of sight, and hidden.
  std::function<void()> Pulsar;
  std::function<void()> Enfocar;

  [[nodiscard]] bool Marcada() const;
  [[nodiscard]] QString Nombre() const;

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void paintEvent(QPaintEvent* evento) override;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;

 private:
  QPointer<QWidget> marca_;
  bool anunciada_ = false;  // what was last told of it
  QList<QPointer<QLabel>> rotulos_;
};

}  // namespace qt
