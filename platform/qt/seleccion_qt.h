#pragma once

#include <QPointer>

#include "qt/pulsable_qt.h"

namespace qt {

/// A text, mostly an empty one, that lies over others and by a click turns a mark on and off: it
/// draws the box that the mark is in.
class SeleccionQt final : public PulsableQt {
 public:
  explicit SeleccionQt(QWidget* padre = nullptr) : PulsableQt(padre) {}

  /// `marca` is there while it is on; `rotulos` are the texts that tell what is marked.
  void Unir(QWidget* marca, const QList<QLabel*>& rotulos);

  [[nodiscard]] bool Marcada() const override;
  [[nodiscard]] QString Nombre() const override;
  [[nodiscard]] QAccessible::Role Papel() const override { return QAccessible::CheckBox; }

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  QPointer<QWidget> marca_;
  QList<QPointer<QLabel>> rotulos_;
};

}  // namespace qt
