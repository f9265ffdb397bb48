#pragma once

#include <QRadioButton>

namespace qt {

/// An option that shows what the model says: neither the mouse nor a key changes it by itself. For
/// the desktop it is one of its group, so that it is announced as an option and not as a box to
/// tick.
class OpcionQt final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

  /// Also off, where no other option of the group is on.
  void Poner(bool encendida) {
    setAutoExclusive(false);
    setChecked(encendida);
    setAutoExclusive(true);
  }

 protected:
  void nextCheckState() override {}
  /// The toolkit would take the options that are off out of the Tab key's way.
  void focusInEvent(QFocusEvent* evento) override { QWidget::focusInEvent(evento); }
};

}  // namespace qt
